#include "tova/nodes/opencurvedpathnode.h"

#include "nodes/nodekind.h"
#include "nodes/opencurvedpathnodeimpl.h"

namespace Tova2 {

using Which = LineEnds::Which;

OpenCurvedPathNode::OpenCurvedPathNode()
    : CurvedPathNode(FactoryIndex{factoryIndex<OpenCurvedPathNodeImpl>()})
{}

OpenCurvedPathNode::OpenCurvedPathNode(const std::vector<Vertex>& vertices) : OpenCurvedPathNode()
{
    setVertices(vertices);
}

OpenCurvedPathNode::OpenCurvedPathNode(OpenCurvedPathNodeImpl* impl) : CurvedPathNode(impl) {}

OpenCurvedPathNode::OpenCurvedPathNode(NodeImpl* impl)
    : CurvedPathNode(checkedKind<OpenCurvedPathNodeImpl>(impl))
{}

LineEndDecoration OpenCurvedPathNode::getStartDecoration() const
{
    return getValidOpenCurvedPathImpl()->ends().decoration(Which::Start);
}

LineEndDecoration OpenCurvedPathNode::getEndDecoration() const
{
    return getValidOpenCurvedPathImpl()->ends().decoration(Which::End);
}

void OpenCurvedPathNode::setStartDecoration(const LineEndDecoration& decoration)
{
    getValidOpenCurvedPathImpl()->setDecoration(Which::Start, decoration);
}

void OpenCurvedPathNode::setEndDecoration(const LineEndDecoration& decoration)
{
    getValidOpenCurvedPathImpl()->setDecoration(Which::End, decoration);
}

void OpenCurvedPathNode::updateDecorations()
{
    getValidOpenCurvedPathImpl()->applyDecorations();
}

const char* OpenCurvedPathNode::staticGetFullyQualifiedKobjTypeName()
{
    return OpenCurvedPathNodeImpl::kTypeName;
}

OpenCurvedPathNodeImpl* OpenCurvedPathNode::getOpenCurvedPathImpl() const noexcept
{
    return static_cast<OpenCurvedPathNodeImpl*>(getImpl());
}

OpenCurvedPathNodeImpl* OpenCurvedPathNode::getValidOpenCurvedPathImpl() const
{
    return static_cast<OpenCurvedPathNodeImpl*>(getValidImpl());
}

} // namespace Tova2
