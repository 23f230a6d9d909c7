#pragma once

#include "tova/nodes/geometry/vertex.h"
#include "tova/nodes/node.h"

namespace Tova2 {

class CurvedPathNodeImpl;

/// A closed curve around the node's fill, by the odd-even rule: a cubic Bézier curve from each
/// vertex to the next and back to the first.
///
/// Positions are local, tangents are relative to their vertex: the curve from vertex a to vertex b
/// has the control points a.position + a.forwardTangent and b.position + b.backwardTangent. An
/// index outside 0 .. numberOfVertices() - 1 throws tova:nodes/InvalidCurveIndex; vertices that are
/// not finite are refused, with all that were given along with them.
class TOVA_EXPORT CurvedPathNode : public Node {
public:
    CurvedPathNode();
    explicit CurvedPathNode(const std::vector<Vertex>& vertices);
    explicit CurvedPathNode(CurvedPathNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit CurvedPathNode(NodeImpl* impl);

    std::vector<Vertex> getVertices() const;
    void setVertices(const std::vector<Vertex>& vertices);
    Vertex getVertex(int index) const;
    void setVertex(int index, const Vertex& vertex);
    void setVertexPosition(int index, const Vetra::GLPoint<double>& position);
    void setVertexForwardTangent(int index, const Vetra::GLPoint<double>& tangent);
    void setVertexBackwardTangent(int index, const Vetra::GLPoint<double>& tangent);
    void append(const Vertex& vertex);
    int numberOfVertices() const;

    /// One a curve; curve i leads from vertex i to the next. Curves beyond the list have the node's
    /// own stroke. Where the stroke changes, both lines end in their caps; elsewhere joins and
    /// dashes go on.
    std::vector<Stroke> getStrokes() const;
    void setStrokes(const std::vector<Stroke>& strokes);

    // These change the vertices, not the node's transform.

    /// Multiplies positions and tangents; a factor below 0 turns the curve round the origin.
    void scale(double factor);
    /// Moves the positions.
    void translate(const Vetra::GLPoint<double>& distance);

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    explicit CurvedPathNode(FactoryIndex factory) noexcept : Node(factory) {}

    CurvedPathNodeImpl* getCurvedPathImpl() const noexcept;
    CurvedPathNodeImpl* getValidCurvedPathImpl() const;
};

} // namespace Tova2
