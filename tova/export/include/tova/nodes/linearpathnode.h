#pragma once

#include "tova/nodes/node.h"

namespace Tova2 {

class LinearPathNodeImpl;

/// A closed polygon: straight segments from point to point and back to the first, around the node's
/// fill, by the odd-even rule.
///
/// Points are local. An index outside 0 .. pointsCount() - 1 throws
/// tova:nodes/InvalidLinearPathIndex; points that are not finite are refused, with all that were
/// given along with them.
class TOVA_EXPORT LinearPathNode : public Node {
public:
    LinearPathNode();
    explicit LinearPathNode(const std::vector<Vetra::GLPoint<double>>& points);
    explicit LinearPathNode(LinearPathNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit LinearPathNode(NodeImpl* impl);

    std::vector<Vetra::GLPoint<double>> getPoints() const;
    void setPoints(const std::vector<Vetra::GLPoint<double>>& points);
    Vetra::GLPoint<double> getPoint(int index) const;
    void setPoint(int index, const Vetra::GLPoint<double>& point);
    void append(const Vetra::GLPoint<double>& point);
    int pointsCount() const;
    static const Property<std::vector<Vetra::GLPoint<double>>>& PathProperty();

    /// One a segment; segment i leads from point i to the next. Segments beyond the list have the
    /// node's own stroke. Where the stroke changes, both lines end in their caps and corners stay
    /// sharp; elsewhere joins and dashes go on.
    std::vector<Stroke> getStrokes() const;
    void setStrokes(const std::vector<Stroke>& strokes);

    // These change the points, not the node's transform.

    /// Multiplies every point; below 0 throws tova:nodes/NegativeLinearPathScale.
    void scale(double factor);
    void translate(const Vetra::GLPoint<double>& distance);

    /// Where the path crosses others, in scene coordinates, as far as the scene's decorator draws
    /// it: a crossing too close to an end or a corner is left out, and all are while nothing is
    /// drawn.
    std::vector<Vetra::GLPoint<double>> intersectionPoints() const;
    /// All that the scene has found.
    std::vector<Vetra::GLPoint<double>> intersectionPointsRaw() const;

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    explicit LinearPathNode(FactoryIndex factory) noexcept : Node(factory) {}

    LinearPathNodeImpl* getLinearPathImpl() const noexcept;
    LinearPathNodeImpl* getValidLinearPathImpl() const;
};

} // namespace Tova2
