#include "scene/coveringimage.h"

#include "vetra/image.h"
#include "vetra/qt.h"

#include <QImage>
#include <QPainter>

#include <algorithm>

namespace Tova2 {

namespace {

QSizeF sizeOf(const Vetra::Image& image)
{
    return QSizeF(image.width(), image.height());
}

// Averages all pixels that become one, which drawing would not.
QImage reduced(const QImage& image, const QRect& part, const QSize& size)
{
    const QImage shown = part == image.rect() ? image : image.copy(part);
    return shown.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

QImage drawn(const Vetra::Image& image, const QRectF& part, const QSize& size)
{
    QImage result(size, QImage::Format_ARGB32_Premultiplied);
    if (result.isNull())
        return result;
    result.fill(Qt::transparent);
    QPainter painter(&result);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    Vetra::paint(painter, image, Vetra::fromQt(QRectF(QPointF(), size)), Vetra::fromQt(part));
    return result;
}

} // namespace

QRectF coveringPart(const QSizeF& image, const QSizeF& target)
{
    const QSizeF size = target.scaled(image, Qt::KeepAspectRatio);
    return QRectF(QPointF((image.width() - size.width()) / 2, (image.height() - size.height()) / 2),
                  size);
}

QImage coveringImage(const Vetra::Image& image, const QSize& target)
{
    const QRectF part = coveringPart(sizeOf(image), target);
    if (image.isVector() || part.width() < target.width())
        return drawn(image, part, target);
    const QImage pixels = Vetra::toQt(image);
    return reduced(pixels, part.toAlignedRect().intersected(pixels.rect()), target);
}

} // namespace Tova2
