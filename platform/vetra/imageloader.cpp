#include "vetra/imageloader.h"

#include "boundedfile.h"
#include "imagesource.h"
#include "rasterdecoder.h"
#include "svgfilter.h"
#include "svgsource.h"
#include "vetra/imageerrors.h"

namespace Vetra {

namespace {

QByteArray toByteArray(std::string_view bytes)
{
    return QByteArray(bytes.data(), static_cast<int>(bytes.size()));
}

Holder<Image> decode(const QByteArray& bytes, const std::string& name)
{
    if (bytes.isEmpty())
        raise(ImageError::Empty, name);
    if (const char* format = rasterFormat(bytes))
        return new Image(std::make_unique<RasterSource>(decodeRaster(bytes, format, name)));
    if (!looksLikeSvg(bytes))
        raise(ImageError::UnknownFormat, name);
    requireSafeSvg(bytes, name);
    return new Image(makeSvgSource(bytes, name));
}

} // namespace

Holder<Image> decodeImage(std::string_view bytes, const std::string& name)
{
    if (bytes.size() > static_cast<std::size_t>(ImageLimits::MaxFileBytes))
        raise(ImageError::TooLarge, name);
    return decode(toByteArray(bytes), name);
}

Holder<Image> loadImage(const std::string& path, const ImagePolicy& policy)
{
    return decode(readBounded(resolveImagePath(path, policy)), path);
}

} // namespace Vetra
