#include "widget/canvasdecor.h"

#include <QPainter>
#include <QPalette>
#include <QPen>

#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

constexpr double kMarqueeTint = 0.12;
constexpr double kRingWidth = 2;
constexpr double kOutlineGap = 3; // between a node and the middle of its outline
constexpr double kFarthest = 1e6; // what the toolkit rasterises

/// So that a hairline falls on one row of device pixels.
QRectF onHairlines(const QRectF& r, double ratio)
{
    const auto snap = [ratio](double v) { return (std::floor(v * ratio) + 0.5) / ratio; };
    return {QPointF(snap(r.left()), snap(r.top())), QPointF(snap(r.right()), snap(r.bottom()))};
}

/// As far as the toolkit can draw it.
QRectF focusOutline(const QRectF& node)
{
    const QRectF whole(-kFarthest, -kFarthest, 2 * kFarthest, 2 * kFarthest);
    return node.adjusted(-kOutlineGap, -kOutlineGap, kOutlineGap, kOutlineGap) & whole;
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

void paintFocusOutline(QPainter& painter, const QRectF& node, const QPalette& palette)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    // Light below: on a node of the same colour it shows as well.
    for (const auto& [role, width] :
         {std::pair{QPalette::Base, kRingWidth + 2}, std::pair{QPalette::Highlight, kRingWidth}}) {
        painter.setPen(QPen(palette.color(role), width));
        painter.drawRoundedRect(focusOutline(node), kOutlineGap, kOutlineGap);
    }
    painter.restore();
}

QRect focusOutlineExtent(const QRectF& node)
{
    constexpr double reach = kRingWidth / 2 + 2;
    return focusOutline(node).adjusted(-reach, -reach, reach, reach).toAlignedRect();
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
