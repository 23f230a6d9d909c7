#pragma once

#include "vetra/glrect.h"
#include "vetra/size.h"

#include <QImage>

#include <cmath>

class QPainter;
class QRectF;

namespace Vetra {

/// Where an image's pixels come from. It is made only with an acceptable size.
class ImageSource {
public:
    virtual ~ImageSource() = default;
    virtual Size<int> size() const = 0;
    virtual bool isVector() const = 0;
    /// Null when memory is short.
    virtual QImage raster(const Size<int>& pixels) const = 0;
    /// `source` is in units of `size`.
    virtual void paint(QPainter& painter, const QRectF& target, const QRectF& source) const = 0;
};

/// Whether it encloses an area and has only finite corners.
inline bool isPaintable(const GLRect<double>& r)
{
    return r.isValid() && std::isfinite(r.x) && std::isfinite(r.y) && std::isfinite(r.right()) &&
           std::isfinite(r.bottom());
}

class RasterSource : public ImageSource {
public:
    explicit RasterSource(QImage image) : m_image(std::move(image)) {}
    Size<int> size() const override { return {m_image.width(), m_image.height()}; }
    bool isVector() const override { return false; }
    QImage raster(const Size<int>& pixels) const override;
    void paint(QPainter& painter, const QRectF& target, const QRectF& source) const override;

private:
    QImage m_image;
};

} // namespace Vetra
