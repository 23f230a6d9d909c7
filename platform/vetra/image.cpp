#include "vetra/image.h"

#include "imagesource.h"
#include "vetra/atomicfile.h"
#include "vetra/imageerrors.h"
#include "vetra/qt.h"

#include <QBuffer>
#include <QPainter>

namespace Vetra {

bool Image::isAcceptableSize(const Size<int>& pixels) noexcept
{
    return pixels.isValid() && pixels.width <= MaxSide && pixels.height <= MaxSide &&
           static_cast<long long>(pixels.width) * pixels.height <= MaxPixels;
}

Image::Image() noexcept = default;

Image::Image(std::unique_ptr<const ImageSource> source) noexcept : m_source(std::move(source)) {}

Image::~Image() = default;

Size<int> Image::size() const
{
    return m_source ? m_source->size() : Size<int>{};
}

bool Image::isVector() const noexcept
{
    return m_source && m_source->isVector();
}

Color Image::pixel(int x, int y) const
{
    const QImage pixels = toQt(*this);
    return pixels.valid(x, y) ? fromQt(pixels.pixelColor(x, y)) : Color::fromPacked(0);
}

Holder<Image> Image::rendered(const Size<int>& pixels) const
{
    if (!m_source || !isAcceptableSize(pixels))
        return new Image;
    return fromQt(m_source->raster(pixels));
}

void Image::savePng(const std::string& path) const
{
    if (isNull())
        raise(ImageError::NullImage, path);
    // Encoded in memory: the toolkit's own writers take a full disk for success.
    QByteArray bytes;
    QBuffer buffer(&bytes);
    if (!buffer.open(QIODevice::WriteOnly) || !toQt(*this).save(&buffer, "PNG"))
        raise(ImageError::CannotEncode, path);
    AtomicFile::writeAll(path, {bytes.constData(), static_cast<std::size_t>(bytes.size())});
}

QImage RasterSource::raster(const Size<int>& pixels) const
{
    if (pixels == size())
        return m_image;
    return m_image.scaled(toQt(pixels), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void RasterSource::paint(QPainter& painter, const QRectF& target, const QRectF& source) const
{
    painter.drawImage(target, m_image, source);
}

QImage toQt(const Image& image)
{
    return image.isNull() ? QImage() : image.source()->raster(image.size());
}

Holder<Image> fromQt(const QImage& image)
{
    // Made in this process, so the limits on what strangers send do not apply.
    if (image.isNull())
        return new Image;
    // Sizes count in pixels throughout; a ratio for a dense screen would shift what is painted.
    QImage plain = image;
    plain.setDevicePixelRatio(1);
    return new Image(std::make_unique<RasterSource>(std::move(plain)));
}

void paint(QPainter& painter, const Image& image, const GLRect<double>& target,
           const GLRect<double>& source)
{
    if (!image.isNull() && isPaintable(target) && isPaintable(source) && painter.isActive())
        image.source()->paint(painter, toQt(target), toQt(source));
}

void paint(QPainter& painter, const Image& image, const GLRect<double>& target)
{
    paint(painter, image, target, {0, 0, double(image.width()), double(image.height())});
}

} // namespace Vetra
