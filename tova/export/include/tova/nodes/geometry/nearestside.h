#pragma once

#include "tova/tova_export.h"

#include "vetra/glpoint.h"
#include "vetra/glrect.h"

#include <cstdint>

namespace Tova2 {

/// A side of a rectangle and how far a point lies from it: above 0 towards the inside, below 0
/// beyond the side.
struct NearestSide {
    std::uint32_t side = 0; ///< 0 left, 1 top, 2 right, 3 bottom
    double distance = 0;

    bool operator==(const NearestSide&) const = default;
};
/// The nearest side for a point inside or on the edge, else the side beyond which the point lies
/// farthest. The lower index wins a tie.
TOVA_EXPORT NearestSide getNearestSide(const Vetra::GLPoint<double>& point,
                                       const Vetra::GLRect<double>& rect);

enum class BlockSide { Top, Right, Bottom, Left, NoSide };
/// The side that `getNearestSide` finds, or none when it is farther away than `tolerance`.
TOVA_EXPORT BlockSide getNearestBlockSide(const Vetra::GLPoint<double>& point,
                                          const Vetra::GLRect<double>& rect, double tolerance);

} // namespace Tova2
