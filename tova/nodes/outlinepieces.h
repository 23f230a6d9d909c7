#pragma once

#include <QPointF>

#include <array>
#include <vector>

class QPainterPath;

namespace Tova2 {

/// A line, of its first and last point, or a cubic curve. Never without extent.
struct OutlinePiece {
    std::array<QPointF, 4> points;
    bool isCurve = false;

    const QPointF& start() const { return points.front(); }
    const QPointF& end() const { return points.back(); }
    // Of length 1, the way the piece is drawn.
    QPointF startDirection() const;
    QPointF endDirection() const;
};

struct OutlineSubpath {
    QPointF start;
    std::vector<OutlinePiece> pieces; ///< none where the path only stands still
    /// As the stroke sees it: the last point is the first, so there are no caps.
    bool isClosed() const;
};

/// Lone start points, which draw nothing, are left out.
std::vector<OutlineSubpath> subpathsOf(const QPainterPath& path);

} // namespace Tova2
