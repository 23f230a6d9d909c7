#pragma once

#include "tova/nodes/geometry/bounds.h"

#include "support/rows.h"

#include <gtest/gtest.h>

#include <ostream>

namespace Vetra {

inline void PrintTo(const GLRect<double>& r, std::ostream* out)
{
    *out << '(' << r.x << ", " << r.y << ", " << r.width << ", " << r.height << ')';
}

} // namespace Vetra

namespace Tova2 {

using Point = Bounds::Point;
using Rect = Bounds::Rect;

/// A diamond with corners on the middles of the sides of (0, 0, 10, 10).
inline Bounds diamond()
{
    return Bounds({5, 0}, {10, 5}, {5, 10}, {0, 5});
}

} // namespace Tova2
