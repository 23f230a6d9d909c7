#include "tova/nodes/rectnode.h"

#include "nodes/nodekind.h"
#include "nodes/rectnodeimpl.h"

#include "vetra/qt.h"

namespace Tova2 {

RectNode::RectNode() : Node(FactoryIndex{factoryIndex<RectNodeImpl>()}) {}

RectNode::RectNode(const Vetra::GLRect<double>& rect) : RectNode()
{
    setRect(rect);
}

RectNode::RectNode(RectNodeImpl* impl) : Node(impl) {}

RectNode::RectNode(NodeImpl* impl) : Node(checkedKind<RectNodeImpl>(impl)) {}

Vetra::GLRect<double> RectNode::getRect() const
{
    return Vetra::fromQt(getValidRectImpl()->rect());
}

void RectNode::setRect(const Vetra::GLRect<double>& rect)
{
    getValidRectImpl()->setRect(Vetra::toQt(rect));
}

const char* RectNode::staticGetFullyQualifiedKobjTypeName()
{
    return "Tova2.RectNode";
}

RectNodeImpl* RectNode::getRectImpl() const noexcept
{
    return static_cast<RectNodeImpl*>(getImpl());
}

RectNodeImpl* RectNode::getValidRectImpl() const
{
    return static_cast<RectNodeImpl*>(getValidImpl());
}

} // namespace Tova2
