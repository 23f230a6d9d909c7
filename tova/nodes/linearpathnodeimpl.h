#pragma once

#include "nodes/crossings/pathintersection.h"
#include "nodes/cubic.h"
#include "nodes/pathnodeimpl.h"

#include <memory>
#include <utility>
#include <vector>

namespace Tova2 {

/// How much of a line of segments is drawn: from a point on one to a point on another.
struct DrawnPart {
    std::size_t firstSegment, lastSegment;
    QPointF start, end;
};

/// Closed; the open kind derives from it.
class LinearPathNodeImpl : public PathNodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.LinearPathNode";

    LinearPathNodeImpl();
    ~LinearPathNodeImpl() override;
    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    const std::vector<QPointF>& points() const { return m_points; }
    /// Nothing when one of them is not finite.
    void setPoints(std::vector<QPointF> points);
    /// The index is known to be right.
    void setPoint(std::size_t index, const QPointF& point);
    void append(const QPointF& point);
    void scalePoints(double factor);
    void translatePoints(const QPointF& distance);

    LinearPathNodeImpl* asLinearPath() override { return this; }
    /// As the scene has found them; empty outside a scene.
    std::span<const PathIntersection> crossings() const;
    /// Those that the scene's decorator draws at a view scale of 1.
    std::vector<PathIntersection> drawnCrossings() const;
    void setCrossings(std::vector<PathIntersection>&& crossings);
    /// For another decorator, or another width of a line that is crossed.
    void dropCrossingMarks();
    QByteArray silhouetteKey() const override;
    /// What other lines keep clear of: in scene units, and 1 for a line of a pixel at any zoom.
    double lineWidth() const;
    /// 0 for what is no path, or none any more.
    static double lineWidthOf(const WeakRef& path);
    /// Points were set, or the path takes part or no longer: other changes of the geometry move no
    /// crossing.
    void markCrossingsStale() { m_areCrossingsStale = true; }
    /// Whether that was said since this was asked last.
    bool takeCrossingsStale() { return std::exchange(m_areCrossingsStale, false); }
    /// Whether the width is another than when this was asked last, or when crossings were set; the
    /// marks of those that cross follow it. False without crossings.
    bool takeLineWidthChange();
    double markReach() const override;

    /// The straight part of a segment as it is drawn, and the corner after it, if that is cut.
    struct DrawnSegment {
        QPointF start, end;
        std::optional<Cubic> corner;
        bool isCornerStraight = false;
    };
    /// What `drawnSegment` has to know of an open path, nothing where none of it is drawn. Walks
    /// over the segments that give way to a decoration: for many segments, ask once.
    virtual std::optional<DrawnPart> drawnPart() const;
    virtual DrawnSegment drawnSegment(const std::optional<DrawnPart>& part,
                                      std::size_t segment) const;

protected:
    std::size_t vertexCount() const override { return m_points.size(); }
    std::span<const QPointF> plainPoints() const override { return m_points; }
    Flattened flattened() const override { return {}; }
    QRectF exactRect() const override { return boundingRectOf(std::span(m_points)); }
    bool isCurved() const override { return false; }
    QPainterPath pathOf(const Range& range) const override;
    bool hasCrossings() const override;
    CrossingMarks* crossingMarks(double viewScale) const override;
    void appendMarked(const Range& range, CrossingMarks& marks, MarkedPath& drawn) const override;
    void dropCaches(ChangeLevel level) override;
    /// After another value of a point at either end.
    virtual void pointsChanged() {}

private:
    struct Crossings;

    void reportPoints();
    void keep(std::vector<PathIntersection>&& crossings) const;

    std::vector<QPointF> m_points;
    /// Null where there are none. What the scene has found since is taken when it is needed.
    mutable std::unique_ptr<Crossings> m_crossings;
    bool m_areCrossingsStale = false;
};

} // namespace Tova2
