#pragma once

#include "tova/nodes/weakref.h"

#include <array>
#include <cstdint>
#include <vector>

namespace Tova2 {

/// Where a horizontal piece of one path and a vertical piece of one path cross, as told to one of
/// the two. A path may cross itself; it then has both records.
struct PathIntersection {
    double x = 0; ///< scene coordinates: of the vertical piece
    double y = 0; ///< of the horizontal piece
    /// 0 on the path whose piece goes before the other's by the z-value of its container, its own
    /// z-value and the place of the piece in its path; 1 on the other one.
    std::uint32_t role = 0;
    WeakRef other; ///< the path that is crossed
    /// Free distances along the two pieces: to the upper end of the vertical one, the left end of
    /// the horizontal one, the lower end and the right end.
    std::array<double, 4> clearance{};

    bool operator==(const PathIntersection&) const = default;
};

} // namespace Tova2
