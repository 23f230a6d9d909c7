#include "rasterdecoder.h"

#include "vetra/imageerrors.h"
#include "vetra/qt.h"

#include <QBuffer>
#include <QImageReader>

namespace Vetra {

namespace {

// The format is fixed: left to guess, the toolkit tries every plugin it has on bytes from
// strangers.
void fix(QImageReader& reader, const char* format)
{
    reader.setAutoDetectImageFormat(false);
    reader.setDecideFormatFromContent(false);
    reader.setFormat(format);
    reader.setAutoTransform(true);
}

QSize acceptableSize(const QImageReader& reader, const std::string& name)
{
    if (!reader.canRead() && !QImageReader::supportedImageFormats().contains(reader.format()))
        raise(ImageError::UnknownFormat, name);
    const QSize size = reader.size();
    if (size.isEmpty())
        raise(ImageError::Damaged, name);
    if (!Image::isAcceptableSize(fromQt(size)))
        raise(ImageError::TooLarge, name);
    return size;
}

QImage inPaintableFormat(QImage image)
{
    return std::move(image).convertToFormat(
        image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
}

} // namespace

const char* rasterFormat(const QByteArray& bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1a\n"))
        return "png";
    if (bytes.startsWith("\xff\xd8\xff"))
        return "jpeg";
    if (bytes.startsWith("GIF87a") || bytes.startsWith("GIF89a"))
        return "gif";
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return "webp";
    return bytes.startsWith("BM") ? "bmp" : nullptr;
}

QSize requireAcceptableHeader(const QByteArray& bytes, const char* format, const std::string& name)
{
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader;
    fix(reader, format);
    reader.setDevice(&buffer);
    return acceptableSize(reader, name);
}

QImage decodeRaster(const QByteArray& bytes, const char* format, const std::string& name)
{
    const QSize announced = requireAcceptableHeader(bytes, format, name);
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader;
    fix(reader, format);
    reader.setDevice(&buffer);
    QImage image = reader.read();
    // A camera's picture may have been turned by a quarter since the header was read.
    const bool isAsAnnounced = image.size() == announced || image.size() == announced.transposed();
    if (image.isNull() || !isAsAnnounced)
        raise(ImageError::Damaged, name);
    image.setDevicePixelRatio(1);
    return inPaintableFormat(std::move(image));
}

} // namespace Vetra
