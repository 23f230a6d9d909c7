#include "tova/nodes/containernode.h"

#include "nodes/containernodeimpl.h"
#include "nodes/nodekind.h"

namespace Tova2 {

ContainerNode::ContainerNode() : Node(FactoryIndex{factoryIndex<ContainerNodeImpl>()}) {}

ContainerNode::ContainerNode(ContainerNodeImpl* impl) : Node(impl) {}

ContainerNode::ContainerNode(NodeImpl* impl) : Node(checkedKind<ContainerNodeImpl>(impl)) {}

const char* ContainerNode::staticGetFullyQualifiedKobjTypeName()
{
    return ContainerNodeImpl::kTypeName;
}

ContainerNodeImpl* ContainerNode::getContainerNodeImpl() const noexcept
{
    return static_cast<ContainerNodeImpl*>(getImpl());
}

ContainerNodeImpl* ContainerNode::getValidContainerNodeImpl() const
{
    return static_cast<ContainerNodeImpl*>(getValidImpl());
}

} // namespace Tova2
