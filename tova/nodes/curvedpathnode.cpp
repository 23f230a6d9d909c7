#include "tova/nodes/curvedpathnode.h"

#include "nodes/curvedpathnodeimpl.h"
#include "nodes/nodekind.h"

#include "tova/nodes/nodeerrors.h"

namespace Tova2 {

namespace {

std::size_t checkedIndex(int index, const CurvedPathNodeImpl& path)
{
    if (index < 0 || static_cast<std::size_t>(index) >= path.vertices().size())
        raise(NodeError::InvalidCurveIndex);
    return static_cast<std::size_t>(index);
}

void change(CurvedPathNodeImpl& path, int index, Vetra::GLPoint<double> Vertex::*part,
            const Vetra::GLPoint<double>& value)
{
    const std::size_t checked = checkedIndex(index, path);
    Vertex vertex = path.vertices()[checked];
    vertex.*part = value;
    path.setVertex(checked, vertex);
}

} // namespace

CurvedPathNode::CurvedPathNode() : Node(FactoryIndex{factoryIndex<CurvedPathNodeImpl>()}) {}

CurvedPathNode::CurvedPathNode(const std::vector<Vertex>& vertices) : CurvedPathNode()
{
    setVertices(vertices);
}

CurvedPathNode::CurvedPathNode(CurvedPathNodeImpl* impl) : Node(impl) {}

CurvedPathNode::CurvedPathNode(NodeImpl* impl) : Node(checkedKind<CurvedPathNodeImpl>(impl)) {}

std::vector<Vertex> CurvedPathNode::getVertices() const
{
    return getValidCurvedPathImpl()->vertices();
}

void CurvedPathNode::setVertices(const std::vector<Vertex>& vertices)
{
    getValidCurvedPathImpl()->setVertices(vertices);
}

Vertex CurvedPathNode::getVertex(int index) const
{
    const CurvedPathNodeImpl& impl = *getValidCurvedPathImpl();
    return impl.vertices()[checkedIndex(index, impl)];
}

void CurvedPathNode::setVertex(int index, const Vertex& vertex)
{
    CurvedPathNodeImpl& impl = *getValidCurvedPathImpl();
    impl.setVertex(checkedIndex(index, impl), vertex);
}

void CurvedPathNode::setVertexPosition(int index, const Vetra::GLPoint<double>& position)
{
    change(*getValidCurvedPathImpl(), index, &Vertex::position, position);
}

void CurvedPathNode::setVertexForwardTangent(int index, const Vetra::GLPoint<double>& tangent)
{
    change(*getValidCurvedPathImpl(), index, &Vertex::forwardTangent, tangent);
}

void CurvedPathNode::setVertexBackwardTangent(int index, const Vetra::GLPoint<double>& tangent)
{
    change(*getValidCurvedPathImpl(), index, &Vertex::backwardTangent, tangent);
}

void CurvedPathNode::append(const Vertex& vertex)
{
    getValidCurvedPathImpl()->append(vertex);
}

int CurvedPathNode::numberOfVertices() const
{
    return static_cast<int>(getValidCurvedPathImpl()->vertices().size());
}

std::vector<Stroke> CurvedPathNode::getStrokes() const
{
    return getValidCurvedPathImpl()->strokes();
}

void CurvedPathNode::setStrokes(const std::vector<Stroke>& strokes)
{
    getValidCurvedPathImpl()->setStrokes(strokes);
}

void CurvedPathNode::scale(double factor)
{
    getValidCurvedPathImpl()->scaleVertices(factor);
}

void CurvedPathNode::translate(const Vetra::GLPoint<double>& distance)
{
    getValidCurvedPathImpl()->translateVertices(distance);
}

const char* CurvedPathNode::staticGetFullyQualifiedKobjTypeName()
{
    return CurvedPathNodeImpl::kTypeName;
}

CurvedPathNodeImpl* CurvedPathNode::getCurvedPathImpl() const noexcept
{
    return static_cast<CurvedPathNodeImpl*>(getImpl());
}

CurvedPathNodeImpl* CurvedPathNode::getValidCurvedPathImpl() const
{
    return static_cast<CurvedPathNodeImpl*>(getValidImpl());
}

} // namespace Tova2
