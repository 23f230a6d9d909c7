#pragma once

#include "nodes/crossings/crossingoutline.h"
#include "nodes/crossings/pathintersection.h"

#include <array>
#include <functional>

namespace Tova2 {

/// What decorating a path needs to know. Coordinates are those of the crossings: the scene's.
struct CrossingContext {
    CrossingOutline& outline;
    double ownWidth = 1; ///< of the path's line
    double viewScale =
        1; ///< device units a scene unit; what is not positive and finite counts as 1
    /// Width of the line of a crossed path; without it, and for a dead path, 0.
    std::function<double(const WeakRef&)> widthOf;

    double widthOfCrossed(const PathIntersection& crossing) const;
    double scale() const;
};

/// Turns the crossings on one straight segment of a path into geometry, while the path's outline is
/// built: from the current point towards the next vertex.
class PathXSegmentDecorator {
public:
    /// Free room that a mark needs, in the order of `PathIntersection::clearance`: before and after
    /// the crossing along one axis (first and third), along the other (second and fourth).
    using Clearance = std::array<double, 4>;

    /// The context must outlive it; the outline ends at `current`.
    PathXSegmentDecorator(const CrossingContext& context, QPointF current, QPointF next);
    PathXSegmentDecorator(const PathXSegmentDecorator&) = delete;
    PathXSegmentDecorator& operator=(const PathXSegmentDecorator&) = delete;

    // Others may stand on this order.
    virtual ~PathXSegmentDecorator();
    /// Crossings come in the direction of travel. False when nothing was drawn across the segment.
    virtual bool decorate(const PathIntersection& crossing) = 0;
    /// Whether the line is cut for a mark.
    virtual bool isPinStyle() const = 0;
    /// In scene units at a view scale of 1, for lines without width.
    virtual Clearance baseClearance(bool vertical) const;
    /// With the widths of the two lines, at the view scale. When the view zooms in it shrinks on
    /// the scene, but only half as fast as the zoom.
    virtual Clearance clearance(double widthA, double widthB, bool vertical) const;

    bool isHorizontal() const { return m_current.y() == m_next.y(); }
    bool isVertical() const { return !isHorizontal() && m_current.x() == m_next.x(); }
    /// What the crossing needs on this segment.
    Clearance requiredBy(const PathIntersection& crossing) const;

protected:
    /// Towards +y, or +x on a horizontal segment.
    bool runsForward() const;
    /// Of places along a segment that is not slanted, in the direction of travel.
    bool isPast(double place, double other) const
    {
        return runsForward() ? place > other : place < other;
    }
    Clearance damped(Clearance clearance) const;
    const CrossingContext& context() const { return m_context; }
    CrossingOutline& outline() const { return m_context.outline; }
    void setCurrent(const QPointF& point) { m_current = point; }
    /// (x, y + distance) in the direction of travel.
    QPointF along(const PathIntersection& crossing, double distance) const;
    /// The two ends of the clearance on a vertical segment, in the direction of travel.
    std::array<QPointF, 2> gap(const PathIntersection& crossing, const Clearance& clearance) const;

private:
    const CrossingContext& m_context;
    QPointF m_current; ///< where the line goes on
    const QPointF m_next;
};

} // namespace Tova2
