#include "tova/nodes/shapenode.h"

#include "nodes/nodekind.h"
#include "nodes/shapenodeimpl.h"

namespace Tova2 {

ShapeNode::ShapeNode() : Node(FactoryIndex{factoryIndex<ShapeNodeImpl>()}) {}

ShapeNode::ShapeNode(const Vetra::Shape& shape) : ShapeNode()
{
    setShape(shape);
}

ShapeNode::ShapeNode(ShapeNodeImpl* impl) : Node(impl) {}

ShapeNode::ShapeNode(NodeImpl* impl) : Node(checkedKind<ShapeNodeImpl>(impl)) {}

Vetra::Shape ShapeNode::getShape() const
{
    return getValidShapeNodeImpl()->figure();
}

void ShapeNode::setShape(const Vetra::Shape& shape)
{
    getValidShapeNodeImpl()->setFigure(shape);
}

const char* ShapeNode::staticGetFullyQualifiedKobjTypeName()
{
    return ShapeNodeImpl::kTypeName;
}

ShapeNodeImpl* ShapeNode::getShapeNodeImpl() const noexcept
{
    return static_cast<ShapeNodeImpl*>(getImpl());
}

ShapeNodeImpl* ShapeNode::getValidShapeNodeImpl() const
{
    return static_cast<ShapeNodeImpl*>(getValidImpl());
}

} // namespace Tova2
