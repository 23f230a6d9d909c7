#include "nodes/flatpath.h"

#include "nodes/segmenttests.h"

#include <cmath>

namespace Tova2 {

bool FlatPath::isInside(const QPointF& point) const
{
    // Only pieces that reach as far right as the point can be passed by its ray.
    const double far = std::numeric_limits<double>::infinity();
    int winding = 0;
    anyPiece(QRectF(point, QSizeF(far, 0)), [&](std::size_t piece) {
        winding += Segments::windingOf(point, start(piece), end(piece));
        return false;
    });
    if (!isClosed && points.size() > 2)
        winding += Segments::windingOf(point, points.back(), points.front());
    return winding % 2 != 0;
}

QRectF boundingRectOf(std::span<const QPointF> points)
{
    if (points.empty())
        return {};
    double left = points[0].x(), right = left, top = points[0].y(), bottom = top;
    for (const QPointF& p : points) {
        left = std::min(left, p.x());
        right = std::max(right, p.x());
        top = std::min(top, p.y());
        bottom = std::max(bottom, p.y());
    }
    return {left, top, right - left, bottom - top};
}

QRectF FlatPath::boundingRect() const
{
    if (chunks.empty())
        return boundingRectOf(points);
    FlatChunk all = chunks[0];
    for (const FlatChunk& chunk : chunks) {
        all.left = std::min(all.left, chunk.left);
        all.right = std::max(all.right, chunk.right);
        all.top = std::min(all.top, chunk.top);
        all.bottom = std::max(all.bottom, chunk.bottom);
    }
    return {all.left, all.top, all.right - all.left, all.bottom - all.top};
}

std::vector<FlatChunk> FlatPath::chunksOf(std::span<const QPointF> points, bool isClosed)
{
    const FlatPath path{points, isClosed, 0, {}, {}};
    const std::size_t count = path.pieceCount();
    std::vector<FlatChunk> chunks;
    if (count <= FlatChunk::kPieces)
        return chunks;
    chunks.reserve((count + FlatChunk::kPieces - 1) / FlatChunk::kPieces);
    for (std::size_t first = 0; first < count; first += FlatChunk::kPieces) {
        const std::size_t last = std::min(count, first + FlatChunk::kPieces) - 1;
        const QPointF& end = path.end(last);
        FlatChunk chunk{end.x(), end.y(), end.x(), end.y()};
        for (std::size_t i = first; i <= last; ++i) {
            chunk.left = std::min(chunk.left, points[i].x());
            chunk.right = std::max(chunk.right, points[i].x());
            chunk.top = std::min(chunk.top, points[i].y());
            chunk.bottom = std::max(chunk.bottom, points[i].y());
        }
        chunks.push_back(chunk);
    }
    return chunks;
}

} // namespace Tova2
