#include "tova/nodes/customnode.h"

#include "nodes/customnodeimpl.h"
#include "nodes/nodekind.h"

namespace Tova2 {

CustomNode::CustomNode() : Node(FactoryIndex{factoryIndex<CustomNodeImpl>()}) {}

CustomNode::CustomNode(CustomNodeImpl* impl) : Node(impl) {}

CustomNode::CustomNode(NodeImpl* impl) : Node(checkedKind<CustomNodeImpl>(impl)) {}

void CustomNode::setPainter(CustomNodePainter* painter)
{
    getValidCustomImpl()->setPainter(painter);
}

CustomNodePainter* CustomNode::getPainter() const
{
    return getValidCustomImpl()->painter();
}

void CustomNode::boundsChanging()
{
    getValidCustomImpl()->boundsChanging();
}

void CustomNode::repaintRequired()
{
    getValidCustomImpl()->reportChange(ChangeLevel::Appearance);
}

const char* CustomNode::staticGetFullyQualifiedKobjTypeName()
{
    return CustomNodeImpl::kTypeName;
}

CustomNodeImpl* CustomNode::getCustomImpl() const noexcept
{
    return static_cast<CustomNodeImpl*>(getImpl());
}

CustomNodeImpl* CustomNode::getValidCustomImpl() const
{
    return static_cast<CustomNodeImpl*>(getValidImpl());
}

} // namespace Tova2
