#pragma once

#include "tova/nodes/node.h"

namespace Tova2 {

class RectNodeImpl;

/// A rectangle. An invalid one is kept as given and draws nothing, except that one without height
/// or width, but not without both, still shows its stroke.
class TOVA_EXPORT RectNode : public Node {
public:
    RectNode();
    explicit RectNode(const Vetra::GLRect<double>& rect);
    explicit RectNode(RectNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit RectNode(NodeImpl* impl);

    Vetra::GLRect<double> getRect() const;
    void setRect(const Vetra::GLRect<double>& rect);

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    RectNodeImpl* getRectImpl() const noexcept;
    RectNodeImpl* getValidRectImpl() const;
};

} // namespace Tova2
