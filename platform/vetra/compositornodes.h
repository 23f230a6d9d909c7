#pragma once

#include "vetra/error.h"
#include "vetra/imagecompositor.h"

#include <optional>

namespace Vetra {

class ImageLeaf : public ImageCompositor::Node {
public:
    explicit ImageLeaf(const Holder<Image>& image) : m_image(image) {}
    void load() const override;
    Size<int> naturalSize() const override;

protected:
    void doPaint(QPainter& painter, const GLRect<double>& target,
                 const GLRect<double>& source) const override;

private:
    Holder<Image> m_image;
};

class FileLeaf : public ImageCompositor::Node {
public:
    explicit FileLeaf(const std::string& path) : m_path(path) {}
    void load() const override;
    Size<int> naturalSize() const override;
    std::string path() const override { return m_path; }

protected:
    void doPaint(QPainter& painter, const GLRect<double>& target,
                 const GLRect<double>& source) const override;

private:
    const Holder<Image>& tryLoad() const;

    std::string m_path;
    // The outcome of one reading, good or bad, kept until the cache is cleared: painting must not
    // retry each time.
    mutable std::optional<unsigned> m_generation;
    mutable Holder<Image> m_image;
    mutable std::optional<Error> m_error;
};

class OverlayNode : public ImageCompositor::Node {
public:
    explicit OverlayNode(std::vector<ImageCompositor::Layer> layers);
    void load() const override;
    Size<int> naturalSize() const override;
    int leafCount() const override { return m_leafCount; }
    int depth() const override { return m_depth; }

protected:
    void doPaint(QPainter& painter, const GLRect<double>& target,
                 const GLRect<double>& source) const override;

private:
    const GLRect<double>& box() const;

    std::vector<ImageCompositor::Layer> m_layers;
    // Asked for at every level of a deep composition; only new files can change it.
    mutable std::optional<unsigned> m_generation;
    mutable GLRect<double> m_box;
    int m_leafCount = 0;
    int m_depth = 1;
};

} // namespace Vetra
