#pragma once

#include "vetra/glpoint.h"

namespace Tova2 {

/// The absolute tolerance, in scene units, wherever a rule says "equal" of computed coordinates.
inline constexpr double coordinateTolerance = 0.0001;

/// Equal infinities are identical; NaN equals nothing.
constexpr bool almostEqual(double a, double b, double tolerance = coordinateTolerance) noexcept
{
    return a == b || (a - b >= -tolerance && a - b <= tolerance);
}

constexpr bool almostEqual(const Vetra::GLPoint<double>& a, const Vetra::GLPoint<double>& b,
                           double tolerance = coordinateTolerance) noexcept
{
    return almostEqual(a.x, b.x, tolerance) && almostEqual(a.y, b.y, tolerance);
}

} // namespace Tova2
