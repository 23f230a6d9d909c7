#pragma once

#include "nodes/cubic.h"
#include "nodes/pathnodeimpl.h"

#include "tova/nodes/geometry/vertex.h"

namespace Tova2 {

/// Closed; the open kind derives from it.
class CurvedPathNodeImpl : public PathNodeImpl {
public:
    static constexpr const char* kTypeName = "Tova2.CurvedPathNode";

    const char* typeName() const override { return kTypeName; }
    void inspect(Inspection& out) const override;
    const std::vector<Vertex>& vertices() const { return m_vertices; }
    /// Nothing when one of them is not finite.
    void setVertices(std::vector<Vertex> vertices);
    /// The index is known to be right.
    void setVertex(std::size_t index, const Vertex& vertex);
    void append(const Vertex& vertex);
    void scaleVertices(double factor);
    void translateVertices(const Vetra::GLPoint<double>& distance);

protected:
    std::size_t vertexCount() const override { return m_vertices.size(); }
    std::span<const QPointF> plainPoints() const override { return {}; }
    Flattened flattened() const override;
    QRectF exactRect() const override;
    bool isCurved() const override { return true; }
    QPainterPath pathOf(const Range& range) const override;

    /// The whole curve that leaves a vertex.
    Cubic curve(std::size_t segment) const;
    /// Those that are drawn, and what is drawn of each; nothing where the first is beyond the last.
    virtual Range drawnRange() const;
    virtual Cubic drawnCurve(std::size_t segment) const { return curve(segment); }
    /// After another value of a vertex at either end.
    virtual void verticesChanged() {}

private:
    void reportVertices();

    std::vector<Vertex> m_vertices;
};

} // namespace Tova2
