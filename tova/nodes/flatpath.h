#pragma once

#include <QPointF>
#include <QRectF>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

/// The box of some neighbouring pieces, by its closed edges.
struct FlatChunk {
    static constexpr std::size_t kPieces = 64;

    double left, top, right, bottom;

    bool touches(const QRectF& r) const
    {
        return (left <= r.right()) & (r.left() <= right) & (top <= r.bottom()) &
               (r.top() <= bottom);
    }
};

/// What the strokes of a path run along, as straight pieces. Owns nothing.
struct FlatPath {
    std::span<const QPointF> points;
    bool isClosed = false;
    std::uint32_t firstSegment = 0;          ///< that piece 0 belongs to
    std::span<const std::uint32_t> segments; ///< of each piece; empty where each is one
    std::span<const FlatChunk> chunks;       ///< empty on short paths

    std::size_t pieceCount() const
    {
        return points.size() < 2 ? 0 : points.size() - (isClosed ? 0 : 1);
    }
    const QPointF& start(std::size_t piece) const { return points[piece]; }
    const QPointF& end(std::size_t piece) const
    {
        return points[piece + 1 == points.size() ? 0 : piece + 1];
    }
    std::size_t segmentOf(std::size_t piece) const
    {
        return segments.empty() ? firstSegment + piece : segments[piece];
    }

    /// Calls `visit(piece)` for pieces that may come into `area` until it answers true.
    template <class Visit>
    bool anyPiece(const QRectF& area, Visit visit) const;
    /// By the odd-even rule, as if closed.
    bool isInside(const QPointF& point) const;
    QRectF boundingRect() const;

    static std::vector<FlatChunk> chunksOf(std::span<const QPointF> points, bool isClosed);
};

template <class Visit>
bool FlatPath::anyPiece(const QRectF& area, Visit visit) const
{
    const std::size_t count = pieceCount();
    for (std::size_t first = 0; first < count; first += FlatChunk::kPieces) {
        if (!chunks.empty() && !chunks[first / FlatChunk::kPieces].touches(area))
            continue;
        const std::size_t last = std::min(count, first + FlatChunk::kPieces);
        for (std::size_t piece = first; piece < last; ++piece) {
            if (visit(piece))
                return true;
        }
    }
    return false;
}

/// Where the points lie; null without any.
QRectF boundingRectOf(std::span<const QPointF> points);

} // namespace Tova2
