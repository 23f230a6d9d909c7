#include "scene/backgroundpainter.h"

#include "scene/coveringimage.h"

#include "vetra/qt.h"

#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace Tova2 {

namespace {

constexpr std::size_t kKeptSizes = 3;

bool liesInScene(const Background& background)
{
    return background.hasGradient() &&
           background.getGradient().coordinateMode() == Vetra::Gradient::CoordinateMode::Logical;
}

QTransform fractionsOf(const QRectF& area)
{
    return {area.width(), 0, 0, area.height(), area.x(), area.y()};
}

QBrush brushOf(const Vetra::Gradient& gradient, const QRectF& area, const QTransform& view)
{
    QGradient ramp = *Vetra::toQt(gradient).gradient();
    ramp.setCoordinateMode(QGradient::LogicalMode);
    QBrush brush(ramp);
    const bool isLogical = gradient.coordinateMode() == Vetra::Gradient::CoordinateMode::Logical;
    brush.setTransform(isLogical ? view : fractionsOf(area));
    return brush;
}

void paintGround(const Background& background, QPainter& painter, const QRectF& area,
                 const QTransform& view)
{
    if (background.hasColor())
        painter.fillRect(area, Vetra::toQt(background.getColor()));
    if (background.hasGradient())
        painter.fillRect(area, brushOf(background.getGradient(), area, view));
}

void paintImage(const Vetra::Image& image, QPainter& painter, const QRectF& area)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const QRectF part = coveringPart(QSizeF(image.width(), image.height()), area.size());
    Vetra::paint(painter, image, Vetra::fromQt(area), Vetra::fromQt(part));
}

/// All that does not lie in the scene. Null when memory is short.
QImage pictureOf(const Background& background, const QSize& size)
{
    const auto image = background.loadedImage();
    const QImage covering = image ? coveringImage(*image, size) : QImage();
    if (liesInScene(background) || (image && covering.isNull()))
        return covering;
    const bool isOpaque = background.hasColor() && background.getColor().alpha() == 255;
    QImage whole(size, isOpaque ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied);
    if (whole.isNull())
        return whole;
    whole.fill(Qt::transparent);
    QPainter painter(&whole);
    paintGround(background, painter, whole.rect(), {});
    painter.drawImage(0, 0, covering);
    return whole;
}

/// Whether an image drawn at its own size lands pixel on pixel, or may when it is shifted.
bool isOnPixels(const QPainter& painter)
{
    const QTransform toDevice = painter.combinedTransform();
    return painter.paintEngine()->type() == QPaintEngine::Raster &&
           toDevice.type() <= QTransform::TxScale && toDevice.m11() > 0 && toDevice.m22() > 0;
}

/// The device's own pixels, as many as are touched by more than what rounding adds.
QRect pixelsOf(const QPainter& painter, const QRectF& area)
{
    constexpr double kSlack = 1e-3, kFarthest = 1e6;
    const QRectF exact = painter.combinedTransform().mapRect(area);
    const QRectF limits(-kFarthest, -kFarthest, 2 * kFarthest, 2 * kFarthest);
    return limits.contains(exact) ? exact.adjusted(kSlack, kSlack, -kSlack, -kSlack).toAlignedRect()
                                  : QRect();
}

} // namespace

void BackgroundPainter::paint(const Background& background, QPainter& painter, const QRectF& area,
                              const QTransform& view)
{
    const auto image = background.loadedImage();
    follow(background);
    painter.save();
    painter.setBrushOrigin(0, 0);
    painter.setClipRect(area, Qt::IntersectClip);
    const bool isInScene = liesInScene(background);
    const bool isWorthKeeping = image || (background.hasGradient() && !isInScene);
    if (isInScene || !isWorthKeeping)
        paintGround(background, painter, area, view);
    if (isWorthKeeping && !(isOnPixels(painter) && paintKept(painter, pixelsOf(painter, area)))) {
        if (!isInScene)
            paintGround(background, painter, area, view);
        if (image)
            paintImage(*image, painter, area);
    }
    painter.restore();
}

void BackgroundPainter::follow(const Background& background)
{
    if (background == m_shown && background.loadedImage() == m_shown.loadedImage())
        return;
    m_kept.clear();
    m_shown = background;
}

bool BackgroundPainter::paintKept(QPainter& painter, const QRect& frame)
{
    if (!CacheBudget::admits(frame.size()))
        return false;
    const double ratio = painter.device()->devicePixelRatioF();
    const auto kept = std::find_if(m_kept.begin(), m_kept.end(), [&](const Kept& one) {
        return one.pixels.size() == frame.size() && one.pixels.devicePixelRatioF() == ratio;
    });
    if (kept != m_kept.end()) {
        m_kept.splice(m_kept.begin(), m_kept, kept);
        kept->share->touch();
    } else if (!keep(pictureOf(m_shown, frame.size()), ratio)) {
        return false;
    }
    painter.setViewTransformEnabled(false);
    painter.setWorldTransform(QTransform());
    painter.drawImage(QPointF(frame.topLeft()) / ratio, m_kept.front().pixels);
    return true;
}

bool BackgroundPainter::keep(QImage pixels, double ratio)
{
    if (pixels.isNull())
        return false;
    pixels.setDevicePixelRatio(ratio);
    m_kept.push_front({std::move(pixels), nullptr});
    const auto kept = m_kept.begin();
    kept->share = std::make_unique<CacheBudget::Share>(CacheBudget::bytesOf(kept->pixels.size()),
                                                       [this, kept] { m_kept.erase(kept); });
    if (m_kept.size() > kKeptSizes)
        m_kept.pop_back();
    return true;
}

} // namespace Tova2
