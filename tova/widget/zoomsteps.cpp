#include "widget/zoomsteps.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Tova2 {

namespace {

constexpr std::array kSteps{0.009, 0.01, 0.02, 0.03, 0.04, 0.05, 0.06, 0.08, 0.1,  0.15,
                            0.2,   0.25, 0.3,  0.4,  0.5,  0.6,  0.8,  1.0,  1.25, 1.5,
                            1.75,  2.0,  2.5,  3.0,  4.0,  5.0,  6.0,  8.0,  10.0, 12.5};
constexpr int kCount = static_cast<int>(kSteps.size());
constexpr double kTolerance = 0.001;
constexpr double kFactor = 1.3;

double step(int index)
{
    return kSteps[static_cast<std::size_t>(index)];
}

bool isEqual(double a, double b)
{
    return a == b || std::abs(a - b) <= kTolerance;
}

bool isBetween(double value, double a, double b)
{
    return value > std::min(a, b) && value < std::max(a, b);
}

/// The fixed step after `scale`; negative where the table has none.
double tableStep(double scale, bool isIn)
{
    auto next =
        static_cast<int>(std::upper_bound(kSteps.begin(), kSteps.end(), scale) - kSteps.begin());
    if (next < kCount && isEqual(step(next), scale))
        ++next;
    if (next <= 0 || next >= kCount)
        return -1;
    int chosen = next - 1;
    if (isEqual(step(chosen), scale))
        --chosen;
    if (isIn)
        chosen = next;
    return chosen > 0 && chosen < kCount - 1 ? step(chosen) : -1;
}

double beyondTable(double scale, bool isIn)
{
    const double target = isIn ? scale * kFactor : scale / kFactor;
    const double rounded = std::trunc(std::trunc(target * 10 + 2.5) / 5) * 5 / 10;
    if (isIn)
        return scale < rounded && rounded < target ? rounded : target;
    return rounded < scale ? std::max(rounded, target) : target;
}

} // namespace

double nextZoomStep(double scale, ZoomDirection direction, double preferred)
{
    const bool isIn = direction == ZoomDirection::In;
    const double chosen = tableStep(scale, isIn);
    if (chosen < 0)
        return beyondTable(scale, isIn);
    return preferred > 0 && isBetween(preferred, scale, chosen) ? preferred : chosen;
}

} // namespace Tova2
