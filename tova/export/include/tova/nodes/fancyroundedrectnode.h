#pragma once

#include "tova/nodes/node.h"

namespace Tova2 {

class FancyRoundedRectNodeImpl;

/// A rectangle with a radius for each corner, 0 for a square one. Radii are kept as given; where
/// two of them are longer than the side between them, all four are drawn smaller by the same
/// factor, so that they just fit. A rectangle without height or width shows its stroke as a line.
class TOVA_EXPORT FancyRoundedRectNode : public Node {
public:
    FancyRoundedRectNode();
    FancyRoundedRectNode(const Vetra::GLRect<double>& rect, double topLeft, double topRight,
                         double bottomLeft, double bottomRight);
    explicit FancyRoundedRectNode(FancyRoundedRectNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit FancyRoundedRectNode(NodeImpl* impl);

    Vetra::GLRect<double> getRect() const;
    void setRect(const Vetra::GLRect<double>& rect);

    // A negative radius is ignored.
    double getTopLeftCornerRadius() const;
    void setTopLeftCornerRadius(double radius);
    double getTopRightCornerRadius() const;
    void setTopRightCornerRadius(double radius);
    double getBottomLeftCornerRadius() const;
    void setBottomLeftCornerRadius(double radius);
    double getBottomRightCornerRadius() const;
    void setBottomRightCornerRadius(double radius);

    static const Property<double>& TopLeftCornerRadiusProperty();
    static const Property<double>& TopRightCornerRadiusProperty();
    static const Property<double>& BottomLeftCornerRadiusProperty();
    static const Property<double>& BottomRightCornerRadiusProperty();

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    FancyRoundedRectNodeImpl* getFancyRoundedRectImpl() const noexcept;
    FancyRoundedRectNodeImpl* getValidFancyRoundedRectImpl() const;
};

} // namespace Tova2
