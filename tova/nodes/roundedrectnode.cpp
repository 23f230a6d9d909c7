#include "tova/nodes/roundedrectnode.h"

#include "nodes/nodekind.h"
#include "nodes/roundedrectnodeimpl.h"

#include "vetra/qt.h"

namespace Tova2 {

RoundedRectNode::RoundedRectNode() : Node(FactoryIndex{factoryIndex<RoundedRectNodeImpl>()}) {}

RoundedRectNode::RoundedRectNode(const Vetra::GLRect<double>& rect, double radius)
    : RoundedRectNode()
{
    setRect(rect);
    setRadius(radius);
}

RoundedRectNode::RoundedRectNode(RoundedRectNodeImpl* impl) : Node(impl) {}

RoundedRectNode::RoundedRectNode(NodeImpl* impl) : Node(checkedKind<RoundedRectNodeImpl>(impl)) {}

Vetra::GLRect<double> RoundedRectNode::getRect() const
{
    return Vetra::fromQt(getValidRoundedRectImpl()->rect());
}

void RoundedRectNode::setRect(const Vetra::GLRect<double>& rect)
{
    getValidRoundedRectImpl()->setRect(Vetra::toQt(rect));
}

double RoundedRectNode::getRadius() const
{
    return getValidRoundedRectImpl()->radius();
}

void RoundedRectNode::setRadius(double radius)
{
    getValidRoundedRectImpl()->setRadius(radius);
}

const Property<Vetra::GLRect<double>>& RoundedRectNode::RectProperty()
{
    static const Property<Vetra::GLRect<double>> property{
        "Rect", [](const Node& node) { return nodeAs<RoundedRectNode>(node).getRect(); },
        [](Node& node, const Vetra::GLRect<double>& rect) {
            nodeAs<RoundedRectNode>(node).setRect(rect);
        }};
    return property;
}

const char* RoundedRectNode::staticGetFullyQualifiedKobjTypeName()
{
    return RoundedRectNodeImpl::kTypeName;
}

RoundedRectNodeImpl* RoundedRectNode::getRoundedRectImpl() const noexcept
{
    return static_cast<RoundedRectNodeImpl*>(getImpl());
}

RoundedRectNodeImpl* RoundedRectNode::getValidRoundedRectImpl() const
{
    return static_cast<RoundedRectNodeImpl*>(getValidImpl());
}

} // namespace Tova2
