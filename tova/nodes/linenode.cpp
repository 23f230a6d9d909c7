#include "tova/nodes/linenode.h"

#include "nodes/linenodeimpl.h"
#include "nodes/nodekind.h"

#include "vetra/qt.h"

namespace Tova2 {

LineNode::LineNode() : Node(FactoryIndex{factoryIndex<LineNodeImpl>()}) {}

LineNode::LineNode(const Vetra::GLPoint<double>& start, const Vetra::GLPoint<double>& end)
    : LineNode()
{
    setLine(start, end);
}

LineNode::LineNode(LineNodeImpl* impl) : Node(impl) {}

LineNode::LineNode(NodeImpl* impl) : Node(checkedKind<LineNodeImpl>(impl)) {}

Vetra::GLPoint<double> LineNode::getStart() const
{
    return Vetra::fromQt(getValidLineImpl()->line().p1());
}

void LineNode::setStart(const Vetra::GLPoint<double>& start)
{
    setLine(start, getEnd());
}

Vetra::GLPoint<double> LineNode::getEnd() const
{
    return Vetra::fromQt(getValidLineImpl()->line().p2());
}

void LineNode::setEnd(const Vetra::GLPoint<double>& end)
{
    setLine(getStart(), end);
}

void LineNode::setLine(const Vetra::GLPoint<double>& start, const Vetra::GLPoint<double>& end)
{
    getValidLineImpl()->setLine({Vetra::toQt(start), Vetra::toQt(end)});
}

LineEndDecoration LineNode::getStartDecoration() const
{
    return getValidLineImpl()->ends().decoration(LineEnds::Which::Start);
}

LineEndDecoration LineNode::getEndDecoration() const
{
    return getValidLineImpl()->ends().decoration(LineEnds::Which::End);
}

void LineNode::setStartDecoration(const LineEndDecoration& decoration)
{
    getValidLineImpl()->setDecoration(LineEnds::Which::Start, decoration);
}

void LineNode::setEndDecoration(const LineEndDecoration& decoration)
{
    getValidLineImpl()->setDecoration(LineEnds::Which::End, decoration);
}

LineEndDecoration& LineNode::getMutableStartDecoration()
{
    return getValidLineImpl()->ends().mutableDecoration(LineEnds::Which::Start);
}

LineEndDecoration& LineNode::getMutableEndDecoration()
{
    return getValidLineImpl()->ends().mutableDecoration(LineEnds::Which::End);
}

void LineNode::onChangedDecorationProperties()
{
    getValidLineImpl()->applyDecorations();
}

const char* LineNode::staticGetFullyQualifiedKobjTypeName()
{
    return LineNodeImpl::kTypeName;
}

LineNodeImpl* LineNode::getLineImpl() const noexcept
{
    return static_cast<LineNodeImpl*>(getImpl());
}

LineNodeImpl* LineNode::getValidLineImpl() const
{
    return static_cast<LineNodeImpl*>(getValidImpl());
}

} // namespace Tova2
