#pragma once

#include "nodes/cubic.h"
#include "nodes/pathnodeimpl.h"

#include "tova/nodes/crossings/pathintersection.h"

#include <memory>
#include <vector>

namespace Tova2 {

/// Closed; the open kind derives from it.
class LinearPathNodeImpl : public PathNodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.LinearPathNode";

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
    /// What other lines keep clear of: in scene units, and 1 for a line of a pixel at any zoom.
    double lineWidth() const;
    double markReach() const override;

protected:
    std::size_t vertexCount() const override { return m_points.size(); }
    std::span<const QPointF> plainPoints() const override { return m_points; }
    Flattened flattened() const override { return {}; }
    QRectF exactRect() const override { return boundingRectOf(std::span(m_points)); }
    bool isCurved() const override { return false; }
    QPainterPath pathOf(const Range& range) const override;
    bool hasCrossings() const override;
    bool buildCrossings(const Range& range, double viewScale, CrossingOutline& out) const override;
    /// The straight part of a segment as it is drawn, and the corner after it, if that is cut.
    struct DrawnSegment {
        QPointF start, end;
        std::optional<Cubic> corner;
        bool isCornerStraight = false;
    };
    virtual DrawnSegment drawnSegment(const Range& range, std::size_t segment) const;
    /// After another value of a point at either end.
    virtual void pointsChanged() {}

private:
    void reportPoints();

    std::vector<QPointF> m_points;
    std::unique_ptr<std::vector<PathIntersection>> m_crossings; ///< null where there are none
};

} // namespace Tova2
