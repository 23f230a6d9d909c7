#include "tova/nodes/style/stroke.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tova2 {

Stroke::Stroke(StrokeStyle style) noexcept : m_style(style) {}

Stroke::Stroke(const Vetra::Color& color, double logicalWidth, StrokeStyle style,
               StrokeCapStyle capStyle, StrokeJoinStyle joinStyle, const LodScale* scaleFunction)
    : m_color(color), m_style(style), m_capStyle(capStyle), m_joinStyle(joinStyle)
{
    setLogicalWidth(logicalWidth);
    setScaleFunction(scaleFunction);
}

Stroke Stroke::NoStroke() noexcept
{
    Stroke stroke(StrokeStyle::NoStroke);
    stroke.setColor(Vetra::Color::fromPacked(0));
    return stroke;
}

void Stroke::setLogicalWidth(double width) noexcept
{
    if (std::isfinite(width) && width >= 0)
        m_logicalWidth = width;
}

void Stroke::setScaleFunction(const LodScale* function) noexcept
{
    m_scaleFunction = function ? function : LodScale::instance();
}

double Stroke::width(double viewScale) const
{
    const double s = std::isfinite(viewScale) && viewScale > 0 ? viewScale : 1;
    const double width = m_logicalWidth == 0 ? 1 / s : m_scaleFunction->scale(s) * m_logicalWidth;
    // A host's function may return anything; `max` drops NaN when that comes second.
    return std::min(std::max(0.0, width), std::numeric_limits<double>::max());
}

} // namespace Tova2
