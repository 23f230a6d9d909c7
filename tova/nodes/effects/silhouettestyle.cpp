#include "nodes/effects/silhouettestyle.h"

#include <algorithm>

namespace Tova2 {

namespace {

template <class Test>
bool anyStop(const Vetra::Gradient& gradient, Test test)
{
    const auto& stops = gradient.stops();
    return std::any_of(stops.begin(), stops.end(),
                       [&](const auto& stop) { return test(stop.color.alpha()); });
}

bool isOpaque(const Fill& fill)
{
    if (fill.style() == FillStyle::Gradient)
        return !anyStop(fill.gradient(), [](int alpha) { return alpha < 255; });
    return !isFilled(fill) || fill.color().alpha() == 255;
}

} // namespace

bool isFilled(const Fill& fill)
{
    if (fill.style() == FillStyle::Gradient)
        return anyStop(fill.gradient(), [](int alpha) { return alpha > 0; });
    return fill.style() == FillStyle::Solid && fill.color().alpha() > 0;
}

bool isStroked(const Stroke& stroke)
{
    return !stroke.isNoStroke() && stroke.color().alpha() > 0;
}

bool isPaintedOpaquely(const DrawStyle& style)
{
    return isOpaque(style.fill()) &&
           (!isStroked(style.stroke()) || style.stroke().color().alpha() == 255);
}

DrawStyle silhouetteStyle(const DrawStyle& style, const Vetra::Color& color, double cosmeticWidth)
{
    DrawStyle result(style.stroke(), isFilled(style.fill()) ? Fill(color) : Fill());
    Stroke stroke = style.stroke();
    if (!isStroked(stroke)) {
        stroke = Stroke::NoStroke();
    } else {
        stroke.setColor(color);
        if (stroke.logicalWidth() == 0) {
            stroke.setLogicalWidth(cosmeticWidth);
            stroke.setScaleFunction(nullptr);
        }
    }
    result.setStroke(stroke);
    result.setIsAntiAliased(style.isAntiAliased());
    result.setIsPixelAligned(style.isPixelAligned());
    return result;
}

} // namespace Tova2
