#include "tova/nodes/geometry/nearestside.h"

#include <cmath>

namespace Tova2 {

NearestSide getNearestSide(const Vetra::GLPoint<double>& point, const Vetra::GLRect<double>& rect)
{
    const double distances[] = {point.x - rect.x, point.y - rect.y, rect.right() - point.x,
                                rect.bottom() - point.y};
    // On a closed rectangle's inside all four are positive, or zero, or a rounding error below it.
    const bool inside = rect.contains(point);
    const auto measure = [&](double d) { return inside ? std::abs(d) : d; };
    NearestSide nearest{0, distances[0]};
    for (std::uint32_t side = 1; side < 4; ++side)
        if (measure(distances[side]) < measure(nearest.distance))
            nearest = {side, distances[side]};
    return nearest;
}

BlockSide getNearestBlockSide(const Vetra::GLPoint<double>& point,
                              const Vetra::GLRect<double>& rect, double tolerance)
{
    constexpr BlockSide sides[] = {BlockSide::Left, BlockSide::Top, BlockSide::Right,
                                   BlockSide::Bottom};
    const auto nearest = getNearestSide(point, rect);
    // Not `> tolerance`: a distance of NaN is out of reach as well.
    return std::abs(nearest.distance) <= tolerance ? sides[nearest.side] : BlockSide::NoSide;
}

} // namespace Tova2
