#pragma once

#include "nodes/crossings/chunkedvector.h"
#include "nodes/crossings/pathsegment.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

/// What a whole pass leaves: the pieces in sorted, packed form, and which of them cross. A piece
/// may have become stale since.
///
/// A crossing takes four bytes on the side of either piece; a path's list is put together from
/// those of its pieces when somebody asks for it.
struct CrossingIndex {
    struct Vertical {
        double x, y1, y2;
        std::uint32_t segment;
    };
    struct Horizontal {
        double y, left, right;
        std::uint32_t segment;
        std::uint32_t serial; ///< its place in the order in which a sweep comes to their left ends
    };
    /// Elements from the end of the block before, to `ends` of it.
    struct Lists {
        ScratchArray<std::uint32_t> ends;
        ChunkedVector<std::uint32_t> values;

        std::uint32_t begin(std::size_t i) const { return i ? ends[i - 1] : 0; }
        std::uint32_t end(std::size_t i) const { return ends[i]; }
    };

    ScratchArray<Vertical> verticals;     ///< by x
    ScratchArray<Horizontal> horizontals; ///< by y
    ScratchArray<std::uint32_t> places;   ///< by segment: its place in one of the two
    ScratchArray<std::uint32_t> segmentsBySerial;
    Lists met;     ///< by vertical: places of the horizontals it crosses, increasing
    Lists meeting; ///< by horizontal: places of the verticals that cross it, increasing
};

} // namespace Tova2
