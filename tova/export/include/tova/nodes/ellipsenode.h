#pragma once

#include "tova/nodes/geometry/ellipse.h"
#include "tova/nodes/node.h"

#include "vetra/size.h"

namespace Tova2 {

class EllipseNodeImpl;
class LodScale;

/// An ellipse. With a `LodScale` it is drawn larger or smaller about its centre, depending on the
/// view scale; geometry and bounding rectangle are then those at a view scale of 1, and scenes
/// allow for the other sizes. One without height or width, but not without both, is drawn as a
/// line.
class TOVA_EXPORT EllipseNode : public Node {
public:
    EllipseNode();
    explicit EllipseNode(const Ellipse& ellipse);
    explicit EllipseNode(EllipseNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit EllipseNode(NodeImpl* impl);

    Ellipse getEllipse() const;
    void setEllipse(const Ellipse& ellipse);
    Vetra::GLPoint<double> getCenter() const;
    void setCenter(const Vetra::GLPoint<double>& center);

    // The size before any scaling. To set it keeps the top left corner of the ellipse's rectangle.

    Vetra::Size<double> getSize() const;
    void setSize(const Vetra::Size<double>& size);
    double getWidth() const;
    /// Within 0.0001 of the present width nothing changes; `setHeight` is alike.
    void setWidth(double width);
    double getHeight() const;
    void setHeight(double height);

    /// As drawn at a view scale.
    double getScaledWidth(double viewScale) const;
    double getScaledHeight(double viewScale) const;
    /// Not owned; null draws the same size at every view scale.
    void setLodScale(const LodScale* scale);
    /// Any value but -1, which is the initial one, draws the ellipse with its centre on the corner
    /// of a pixel.
    void setWidthToPixelAlignCenter(double width);

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    EllipseNodeImpl* getEllipseImpl() const noexcept;
    EllipseNodeImpl* getValidEllipseImpl() const;
};

} // namespace Tova2
