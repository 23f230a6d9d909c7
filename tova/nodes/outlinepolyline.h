#pragma once

#include "nodes/outlinepieces.h"

#include <QRectF>
#include <Qt>

namespace Tova2 {

/// A path as straight segments: what the hit tests of free shapes are computed from, at a few
/// nanoseconds a segment.
class OutlinePolyline {
public:
    OutlinePolyline() = default;
    /// Curves turn into chords that are off by less than 0.05 units and 1/2000 of the curve.
    explicit OutlinePolyline(const std::vector<OutlineSubpath>& subpaths);

    /// Whether the path itself, not its inside, comes within the distance.
    bool passesNear(const QPointF& point, double distance) const;
    bool passesNear(const QRectF& rect, double distance) const;
    /// By the fill rule; open subpaths count as closed.
    bool isInside(const QPointF& point, Qt::FillRule rule) const;
    /// Whether the filled path and the rectangle have a point in common.
    bool fillMeets(const QRectF& rect, Qt::FillRule rule) const;

private:
    void add(const OutlineSubpath& subpath);
    template <class Visit>
    bool anySegment(bool isFilled, Visit visit) const;

    std::vector<QPointF> m_points;
    std::vector<std::size_t> m_ends; ///< of the subpaths, in `m_points`
};

} // namespace Tova2
