#pragma once

#include "tova/nodes/lineenddecoration.h"

namespace Tova2 {

class LineNodeImpl;

/// A straight line, with a decoration at either end. It has no inside: the fill is not drawn, and
/// without a stroke nothing is hit.
class TOVA_EXPORT LineNode : public Node {
public:
    LineNode();
    LineNode(const Vetra::GLPoint<double>& start, const Vetra::GLPoint<double>& end);
    explicit LineNode(LineNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit LineNode(NodeImpl* impl);

    Vetra::GLPoint<double> getStart() const;
    void setStart(const Vetra::GLPoint<double>& start);
    Vetra::GLPoint<double> getEnd() const;
    void setEnd(const Vetra::GLPoint<double>& end);
    /// Both in one change.
    void setLine(const Vetra::GLPoint<double>& start, const Vetra::GLPoint<double>& end);

    /// With position and rotation as they are now.
    LineEndDecoration getStartDecoration() const;
    LineEndDecoration getEndDecoration() const;
    /// Makes the decoration's node a child of this one and keeps it at the line's end from then on;
    /// the former decoration's node leaves the scene. Throws as `setParent` does, and changes
    /// nothing then.
    void setStartDecoration(const LineEndDecoration& decoration);
    void setEndDecoration(const LineEndDecoration& decoration);
    /// For changes in place, until the element dies. They are drawn once
    /// `onChangedDecorationProperties` is called.
    LineEndDecoration& getMutableStartDecoration();
    LineEndDecoration& getMutableEndDecoration();
    void onChangedDecorationProperties();

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    LineNodeImpl* getLineImpl() const noexcept;
    LineNodeImpl* getValidLineImpl() const;
};

} // namespace Tova2
