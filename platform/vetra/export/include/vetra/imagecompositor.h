#pragma once

#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/image.h"
#include "vetra/imageloader.h"
#include "vetra/referenced.h"
#include "vetra/vetra_export.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

class QPainter;

namespace Vetra {

/// Images put together from files, from images in memory and from other such compositions. GUI
/// thread only.
class VETRA_EXPORT ImageCompositor {
public:
    class Manager;

    /// One immutable piece of a composition, shared through `Holder`.
    class VETRA_EXPORT Node : public Referenced {
    public:
        /// Reads what has to be read; throws the error that keeps the node from showing anything.
        virtual void load() const = 0;
        /// Zero when nothing can be shown. In pixels.
        virtual Size<int> naturalSize() const = 0;
        /// The file, for a node made from one; else empty.
        virtual std::string path() const { return {}; }
        bool isNull() const { return !naturalSize().isValid(); }
        /// The whole at a size in pixels, vector drawings drawn for it. A null image when the node
        /// is null, or the size is not acceptable.
        Holder<Image> image(const Size<int>& pixels) const;
        Holder<Image> image() const { return image(naturalSize()); }

    protected:
        friend class ImageCompositor;
        friend class OverlayNode;
        friend VETRA_EXPORT void paint(QPainter& painter, const Node& node,
                                       const GLRect<double>& target, const GLRect<double>& source);
        ~Node() override;
        /// `target` and `source` are valid, `source` in units of the natural size; nothing when the
        /// node is null.
        virtual void doPaint(QPainter& painter, const GLRect<double>& target,
                             const GLRect<double>& source) const = 0;
        virtual int leafCount() const { return 1; }
        virtual int depth() const { return 1; }
    };

    /// One of several nodes that are drawn over each other.
    struct Layer {
        Holder<Node> node;
        GLPoint<double> offset; ///< of its top left corner, in pixels of the composition
        double opacity = 1;     ///< clamped to 0..1
    };

    static constexpr int MaxDepth = 64;
    static constexpr int MaxLeaves = 4096;

    // Never an empty holder.
    static Holder<Node> fromImage(const Holder<Image>& image);
    /// Read on first use, and once again after `Manager::clearCache`. The node stays null while
    /// that fails.
    static Holder<Node> fromFile(const std::string& path);
    /// Painted in order. The natural size is the box around all layers, rounded outwards. Layers
    /// that are empty or whose offset or opacity is not a finite number are left out. Throws
    /// vetra:images/TooComplex beyond `MaxDepth` or `MaxLeaves`.
    static Holder<Node> overlay(const std::vector<Layer>& layers);
};

/// Keeps what was loaded from files, the least recently used leaving first.
class VETRA_EXPORT ImageCompositor::Manager {
public:
    static constexpr std::size_t DefaultCacheLimit = 64u << 20;

    static Manager& instance();

    /// Forgets all files, so that they are read again where they are shown.
    void clearCache();
    /// In bytes of pixels; an image larger than it is not kept.
    void setCacheLimit(std::size_t bytes);
    std::size_t cacheLimit() const noexcept;
    std::size_t cachedBytes() const noexcept;

    /// Which files nodes may read from now on; also clears the cache.
    void setPolicy(const ImagePolicy& policy);
    const ImagePolicy& policy() const noexcept;

    /// From the cache, or as `loadImage` under the policy. A file that has changed since is read
    /// again.
    Holder<Image> load(const std::string& path);
    /// Differs after each `clearCache`.
    unsigned generation() const noexcept;

private:
    Manager();
    ~Manager();
    struct Cache;
    std::unique_ptr<Cache> m_cache;
};

} // namespace Vetra
