#pragma once

#include "tova/nodes/node.h"

namespace Tova2 {

class RoundedRectNodeImpl;

/// A rectangle with corners of one radius, drawn with at most half the shorter side. Square corners
/// until a radius is set. A rectangle that is not valid is kept as given and draws nothing, except
/// that one without height or width, but not without both, still shows its stroke as a line.
class TOVA_EXPORT RoundedRectNode : public Node {
public:
    RoundedRectNode();
    RoundedRectNode(const Vetra::GLRect<double>& rect, double radius);
    explicit RoundedRectNode(RoundedRectNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit RoundedRectNode(NodeImpl* impl);

    Vetra::GLRect<double> getRect() const;
    void setRect(const Vetra::GLRect<double>& rect);
    double getRadius() const;
    /// A radius that is not above 0, or within 0.0001 of the present one, is ignored.
    void setRadius(double radius);
    static const Property<Vetra::GLRect<double>>& RectProperty();

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    RoundedRectNodeImpl* getRoundedRectImpl() const noexcept;
    RoundedRectNodeImpl* getValidRoundedRectImpl() const;
};

} // namespace Tova2
