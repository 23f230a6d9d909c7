#pragma once

#include "nodes/pathnodeimpl.h"

namespace Tova2 {

/// Closed; the open kind derives from it.
class LinearPathNodeImpl : public PathNodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.LinearPathNode";

    const char* typeName() const override { return kTypeName; }
    const std::vector<QPointF>& points() const { return m_points; }
    /// Nothing when one of them is not finite.
    void setPoints(std::vector<QPointF> points);
    /// The index is known to be right.
    void setPoint(std::size_t index, const QPointF& point);
    void append(const QPointF& point);
    void scalePoints(double factor);
    void translatePoints(const QPointF& distance);

protected:
    std::size_t vertexCount() const override { return m_points.size(); }
    std::span<const QPointF> plainPoints() const override { return m_points; }
    Flattened flattened() const override { return {}; }
    QRectF exactRect() const override { return boundingRectOf(std::span(m_points)); }
    bool isCurved() const override { return false; }
    QPainterPath pathOf(const Range& range) const override;
    /// After another value of a point at either end.
    virtual void pointsChanged() {}

private:
    void reportPoints();

    std::vector<QPointF> m_points;
};

} // namespace Tova2
