#include "vetra/pixmap.h"

#include "vetra/qt.h"

#include <QPixmap>

namespace Vetra {

Pixmap::Pixmap(const Image& image)
{
    if (!image.isNull())
        *this = fromQt(QPixmap::fromImage(toQt(image)));
}

Size<int> Pixmap::size() const
{
    return isNull() ? Size<int>{} : fromQt(m_pixels->size());
}

Holder<Image> Pixmap::toImage() const
{
    return isNull() ? Holder<Image>(new Image) : fromQt(m_pixels->toImage());
}

bool Pixmap::operator==(const Pixmap& other) const noexcept
{
    if (isNull() || other.isNull())
        return isNull() && other.isNull();
    return m_pixels->cacheKey() == other.m_pixels->cacheKey();
}

QPixmap toQt(const Pixmap& pixmap)
{
    return pixmap.isNull() ? QPixmap() : *pixmap.m_pixels;
}

Pixmap fromQt(const QPixmap& pixmap)
{
    Pixmap result;
    if (!pixmap.isNull())
        result.m_pixels = std::make_shared<const QPixmap>(pixmap);
    return result;
}

} // namespace Vetra
