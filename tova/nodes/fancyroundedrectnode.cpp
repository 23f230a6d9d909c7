#include "tova/nodes/fancyroundedrectnode.h"

#include "nodes/fancyroundedrectnodeimpl.h"
#include "nodes/nodekind.h"

#include "vetra/qt.h"

namespace Tova2 {

FancyRoundedRectNode::FancyRoundedRectNode()
    : Node(FactoryIndex{factoryIndex<FancyRoundedRectNodeImpl>()})
{}

FancyRoundedRectNode::FancyRoundedRectNode(const Vetra::GLRect<double>& rect, double topLeft,
                                           double topRight, double bottomLeft, double bottomRight)
    : FancyRoundedRectNode()
{
    setRect(rect);
    setTopLeftCornerRadius(topLeft);
    setTopRightCornerRadius(topRight);
    setBottomLeftCornerRadius(bottomLeft);
    setBottomRightCornerRadius(bottomRight);
}

FancyRoundedRectNode::FancyRoundedRectNode(FancyRoundedRectNodeImpl* impl) : Node(impl) {}

FancyRoundedRectNode::FancyRoundedRectNode(NodeImpl* impl)
    : Node(checkedKind<FancyRoundedRectNodeImpl>(impl))
{}

Vetra::GLRect<double> FancyRoundedRectNode::getRect() const
{
    return Vetra::fromQt(getValidFancyRoundedRectImpl()->rect());
}

void FancyRoundedRectNode::setRect(const Vetra::GLRect<double>& rect)
{
    getValidFancyRoundedRectImpl()->setRect(Vetra::toQt(rect));
}

double FancyRoundedRectNode::getTopLeftCornerRadius() const
{
    return getValidFancyRoundedRectImpl()->radius(Corner::TopLeft);
}

void FancyRoundedRectNode::setTopLeftCornerRadius(double radius)
{
    getValidFancyRoundedRectImpl()->setRadius(Corner::TopLeft, radius);
}

double FancyRoundedRectNode::getTopRightCornerRadius() const
{
    return getValidFancyRoundedRectImpl()->radius(Corner::TopRight);
}

void FancyRoundedRectNode::setTopRightCornerRadius(double radius)
{
    getValidFancyRoundedRectImpl()->setRadius(Corner::TopRight, radius);
}

double FancyRoundedRectNode::getBottomLeftCornerRadius() const
{
    return getValidFancyRoundedRectImpl()->radius(Corner::BottomLeft);
}

void FancyRoundedRectNode::setBottomLeftCornerRadius(double radius)
{
    getValidFancyRoundedRectImpl()->setRadius(Corner::BottomLeft, radius);
}

double FancyRoundedRectNode::getBottomRightCornerRadius() const
{
    return getValidFancyRoundedRectImpl()->radius(Corner::BottomRight);
}

void FancyRoundedRectNode::setBottomRightCornerRadius(double radius)
{
    getValidFancyRoundedRectImpl()->setRadius(Corner::BottomRight, radius);
}

const Property<double>& FancyRoundedRectNode::TopLeftCornerRadiusProperty()
{
    static const Property<double> property{
        "TopLeftCornerRadius",
        [](const Node& node) {
            return nodeAs<FancyRoundedRectNode>(node).getTopLeftCornerRadius();
        },
        [](Node& node, const double& radius) {
            nodeAs<FancyRoundedRectNode>(node).setTopLeftCornerRadius(radius);
        }};
    return property;
}

const Property<double>& FancyRoundedRectNode::TopRightCornerRadiusProperty()
{
    static const Property<double> property{
        "TopRightCornerRadius",
        [](const Node& node) {
            return nodeAs<FancyRoundedRectNode>(node).getTopRightCornerRadius();
        },
        [](Node& node, const double& radius) {
            nodeAs<FancyRoundedRectNode>(node).setTopRightCornerRadius(radius);
        }};
    return property;
}

const Property<double>& FancyRoundedRectNode::BottomLeftCornerRadiusProperty()
{
    static const Property<double> property{
        "BottomLeftCornerRadius",
        [](const Node& node) {
            return nodeAs<FancyRoundedRectNode>(node).getBottomLeftCornerRadius();
        },
        [](Node& node, const double& radius) {
            nodeAs<FancyRoundedRectNode>(node).setBottomLeftCornerRadius(radius);
        }};
    return property;
}

const Property<double>& FancyRoundedRectNode::BottomRightCornerRadiusProperty()
{
    static const Property<double> property{
        "BottomRightCornerRadius",
        [](const Node& node) {
            return nodeAs<FancyRoundedRectNode>(node).getBottomRightCornerRadius();
        },
        [](Node& node, const double& radius) {
            nodeAs<FancyRoundedRectNode>(node).setBottomRightCornerRadius(radius);
        }};
    return property;
}

const char* FancyRoundedRectNode::staticGetFullyQualifiedKobjTypeName()
{
    return FancyRoundedRectNodeImpl::kTypeName;
}

FancyRoundedRectNodeImpl* FancyRoundedRectNode::getFancyRoundedRectImpl() const noexcept
{
    return static_cast<FancyRoundedRectNodeImpl*>(getImpl());
}

FancyRoundedRectNodeImpl* FancyRoundedRectNode::getValidFancyRoundedRectImpl() const
{
    return static_cast<FancyRoundedRectNodeImpl*>(getValidImpl());
}

} // namespace Tova2
