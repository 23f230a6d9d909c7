#include "nodes/pen.h"

#include "tova/nodes/geometry/limits.h"
#include "tova/nodes/style/fill.h"
#include "tova/nodes/style/stroke.h"
#include "vetra/qt.h"

#include <algorithm>

namespace Tova2 {

namespace {

Qt::PenCapStyle capOf(StrokeCapStyle style)
{
    switch (style) {
    case StrokeCapStyle::SquareCap:
        return Qt::SquareCap;
    case StrokeCapStyle::RoundCap:
        return Qt::RoundCap;
    default:
        return Qt::FlatCap;
    }
}

Qt::PenJoinStyle joinOf(StrokeJoinStyle style)
{
    switch (style) {
    case StrokeJoinStyle::BevelJoin:
        return Qt::BevelJoin;
    case StrokeJoinStyle::RoundJoin:
        return Qt::RoundJoin;
    case StrokeJoinStyle::SvgMiterJoin:
        return Qt::SvgMiterJoin;
    default:
        return Qt::MiterJoin;
    }
}

Qt::PenStyle lineOf(StrokeStyle style)
{
    // The values follow the toolkit's; anything beyond them is drawn solid.
    return style <= StrokeStyle::DashDotDotLine ? static_cast<Qt::PenStyle>(style) : Qt::SolidLine;
}

} // namespace

double drawnWidth(const Stroke& stroke, double viewScale)
{
    const double width = stroke.isNoStroke() ? 0 : stroke.width(viewScale);
    return width > 0 ? std::min(width, Limits::penWidth / viewScale) : 0;
}

QPen penOf(const Stroke& stroke, double viewScale)
{
    if (stroke.isNoStroke())
        return QPen(Qt::NoPen);
    // A pen of width 0 is the toolkit's own cosmetic pen, one pixel at any transform.
    const double width = stroke.logicalWidth() == 0 ? 0 : drawnWidth(stroke, viewScale);
    return QPen(Vetra::toQt(stroke.color()), width, lineOf(stroke.style()),
                capOf(stroke.capStyle()), joinOf(stroke.joinStyle()));
}

QBrush brushOf(const Fill& fill)
{
    switch (fill.style()) {
    case FillStyle::Solid:
        return QBrush(Vetra::toQt(fill.color()));
    case FillStyle::Gradient:
        return fill.gradient().isEmpty() ? QBrush(Qt::NoBrush) : Vetra::toQt(fill.gradient());
    default:
        return QBrush(Qt::NoBrush);
    }
}

} // namespace Tova2
