#include "tova/nodes/geometry/geometryfunctions.h"

#include <cmath>

namespace Tova2 {

double getDragRegionMargin(double viewScale)
{
    constexpr double pixels = 17, least = 10, most = 30;
    // `fmin` and `fmax` pass over NaN.
    return std::fmax(least, std::fmin(most, pixels / viewScale));
}

Vetra::GLPoint<double> getLabelTopLeftOffsetInsideARoundedRect(double radius)
{
    constexpr double leastRadius = 10;
    // 1 - cos(45 degrees): how far the middle of the corner's arc lies inside the rectangle's
    // sides.
    constexpr double inset = 0.2929;
    constexpr double ascent = 3; // the label's first line may reach up beside the arc
    const double v = (std::isfinite(radius) ? std::fmax(radius, leastRadius) : leastRadius) * inset;
    return {v, v - ascent};
}

} // namespace Tova2
