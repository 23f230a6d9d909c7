#include "tova/nodes/openlinearpathnode.h"

#include "nodes/nodekind.h"
#include "nodes/openlinearpathnodeimpl.h"

namespace Tova2 {

using Which = LineEnds::Which;

OpenLinearPathNode::OpenLinearPathNode()
    : LinearPathNode(FactoryIndex{factoryIndex<OpenLinearPathNodeImpl>()})
{}

OpenLinearPathNode::OpenLinearPathNode(const std::vector<Vetra::GLPoint<double>>& points)
    : OpenLinearPathNode()
{
    setPoints(points);
}

OpenLinearPathNode::OpenLinearPathNode(OpenLinearPathNodeImpl* impl) : LinearPathNode(impl) {}

OpenLinearPathNode::OpenLinearPathNode(NodeImpl* impl)
    : LinearPathNode(checkedKind<OpenLinearPathNodeImpl>(impl))
{}

LineEndDecoration OpenLinearPathNode::getStartDecoration() const
{
    return getValidOpenLinearPathImpl()->ends().decoration(Which::Start);
}

LineEndDecoration OpenLinearPathNode::getEndDecoration() const
{
    return getValidOpenLinearPathImpl()->ends().decoration(Which::End);
}

void OpenLinearPathNode::setStartDecoration(const LineEndDecoration& decoration)
{
    getValidOpenLinearPathImpl()->setDecoration(Which::Start, decoration);
}

void OpenLinearPathNode::setEndDecoration(const LineEndDecoration& decoration)
{
    getValidOpenLinearPathImpl()->setDecoration(Which::End, decoration);
}

LineEndDecoration& OpenLinearPathNode::getMutableStartDecoration()
{
    return getValidOpenLinearPathImpl()->ends().mutableDecoration(Which::Start);
}

LineEndDecoration& OpenLinearPathNode::getMutableEndDecoration()
{
    return getValidOpenLinearPathImpl()->ends().mutableDecoration(Which::End);
}

void OpenLinearPathNode::onChangedDecorationProperties()
{
    getValidOpenLinearPathImpl()->applyDecorations();
}

CornerStyle OpenLinearPathNode::getCornerStyle() const
{
    return getValidOpenLinearPathImpl()->cornerStyle();
}

void OpenLinearPathNode::setCornerStyle(CornerStyle style)
{
    getValidOpenLinearPathImpl()->setCornerStyle(style);
}

double OpenLinearPathNode::getRoundedCornerRadius() const
{
    return getValidOpenLinearPathImpl()->cornerRadius();
}

void OpenLinearPathNode::setRoundedCornerRadius(double radius)
{
    getValidOpenLinearPathImpl()->setCornerRadius(radius);
}

bool OpenLinearPathNode::getUsePainterPathForEffect() const
{
    return getValidOpenLinearPathImpl()->usesPathForEffect();
}

void OpenLinearPathNode::setUsePainterPathForEffect(bool use)
{
    getValidOpenLinearPathImpl()->setUsesPathForEffect(use);
}

const char* OpenLinearPathNode::staticGetFullyQualifiedKobjTypeName()
{
    return OpenLinearPathNodeImpl::kTypeName;
}

OpenLinearPathNodeImpl* OpenLinearPathNode::getOpenLinearPathImpl() const noexcept
{
    return static_cast<OpenLinearPathNodeImpl*>(getImpl());
}

OpenLinearPathNodeImpl* OpenLinearPathNode::getValidOpenLinearPathImpl() const
{
    return static_cast<OpenLinearPathNodeImpl*>(getValidImpl());
}

} // namespace Tova2
