#pragma once

#include "tova/nodes/cornerstyle.h"
#include "tova/nodes/linearpathnode.h"
#include "tova/nodes/lineenddecoration.h"

namespace Tova2 {

class OpenLinearPathNodeImpl;

/// A connector: straight segments from the first point to the last, with a decoration at either
/// end. It has no inside.
class TOVA_EXPORT OpenLinearPathNode : public LinearPathNode {
public:
    OpenLinearPathNode();
    explicit OpenLinearPathNode(const std::vector<Vetra::GLPoint<double>>& points);
    explicit OpenLinearPathNode(OpenLinearPathNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit OpenLinearPathNode(NodeImpl* impl);

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

    CornerStyle getCornerStyle() const;
    void setCornerStyle(CornerStyle style);
    double getRoundedCornerRadius() const;
    /// 0 for sharp corners of any style; negative values are ignored.
    void setRoundedCornerRadius(double radius);

    /// Whether effects are made from the line's outline instead of its picture.
    bool getUsePainterPathForEffect() const;
    void setUsePainterPathForEffect(bool use);

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    OpenLinearPathNodeImpl* getOpenLinearPathImpl() const noexcept;
    OpenLinearPathNodeImpl* getValidOpenLinearPathImpl() const;
};

} // namespace Tova2
