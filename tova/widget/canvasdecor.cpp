#include "widget/canvasdecor.h"

#include <QPainter>
#include <QPalette>
#include <QPen>

#include <cmath>

namespace Tova2 {

namespace {

constexpr double kMarqueeTint = 0.12;
constexpr double kRingWidth = 2;

/// So that a hairline falls on one row of device pixels.
QRectF onHairlines(const QRectF& r, double ratio)
{
    const auto snap = [ratio](double v) { return (std::floor(v * ratio) + 0.5) / ratio; };
    return {QPointF(snap(r.left()), snap(r.top())), QPointF(snap(r.right()), snap(r.bottom()))};
}

} // namespace

QRect marqueeExtent(const QRectF& viewRect)
{
    return viewRect.adjusted(-2, -2, 2, 2).toAlignedRect();
}

void paintMarquee(QPainter& painter, const QRectF& viewRect, const QPalette& palette)
{
    const double ratio = painter.device()->devicePixelRatioF();
    const QColor accent = palette.color(QPalette::Highlight);
    QColor tint = accent;
    tint.setAlphaF(kMarqueeTint);
    const QRectF frame = onHairlines(viewRect, ratio);
    painter.fillRect(frame, tint);
    painter.setPen(QPen(accent, 1 / ratio));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(frame);
}

void paintFocusRing(QPainter& painter, const QRectF& view, const QPalette& palette)
{
    QPen pen(palette.color(QPalette::Highlight), kRingWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    constexpr double inset = kRingWidth / 2;
    painter.drawRect(view.adjusted(inset, inset, -inset, -inset));
}

} // namespace Tova2
