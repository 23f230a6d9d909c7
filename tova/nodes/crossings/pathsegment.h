#pragma once

#include "vetra/glpoint.h"

#include <cstdint>

namespace Tova2 {

/// One straight, axis-parallel piece of a path, in scene coordinates. 64 bytes: one line of the
/// cache, since the sweep meets them in no order.
struct PathSegment {
    Vetra::GLPoint<double> p1; ///< the left or the upper end
    Vetra::GLPoint<double> p2;
    double parentZ;
    double z;
    std::int32_t segmentIndex; ///< joins this point of the path and the next one
    std::uint32_t node;        ///< slot in the worker's table of nodes
    std::uint32_t changeLevel; ///< of the node when the piece was taken
    std::uint32_t isStale;     ///< the node has changed since, or is gone

    bool isHorizontal() const { return p1.x != p2.x; }
};

static_assert(sizeof(PathSegment) == 64);

/// Whether `a` goes before `b` where both cross. Values that are neither greater nor less count as
/// equal.
inline bool hasPrecedence(const PathSegment& a, const PathSegment& b)
{
    if (a.parentZ > b.parentZ || b.parentZ > a.parentZ)
        return a.parentZ > b.parentZ;
    if (a.z > b.z || b.z > a.z)
        return a.z > b.z;
    return a.segmentIndex > b.segmentIndex;
}

/// A crossing by the places of its pieces in the worker's table.
struct CrossingPair {
    std::uint32_t vertical;
    std::uint32_t horizontal;

    bool operator==(const CrossingPair&) const = default;
};

} // namespace Tova2
