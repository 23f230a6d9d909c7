#pragma once

#include "vetra/glpoint.h"

#include <limits>

namespace Vetra {

/// Cut off toward zero and kept in the range of an int; 0 for what is not a number.
constexpr int saturatedInt(double value) noexcept
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (value != value)
        return 0;
    if (value <= lowest)
        return std::numeric_limits<int>::min();
    return value >= highest ? std::numeric_limits<int>::max() : static_cast<int>(value);
}

/// saturatedInt() of each coordinate.
constexpr GLPoint<int> saturatedInts(const GLPoint<double>& point) noexcept
{
    return {saturatedInt(point.x), saturatedInt(point.y)};
}

} // namespace Vetra
