#include "tova/nodes/compositenode.h"

#include "nodes/compositenodeimpl.h"
#include "nodes/nodekind.h"

namespace Tova2 {

CompositeNode::CompositeNode() : Node(FactoryIndex{factoryIndex<CompositeNodeImpl>()}) {}

CompositeNode::CompositeNode(CompositeNodeImpl* impl) : Node(impl) {}

CompositeNode::CompositeNode(NodeImpl* impl) : Node(checkedKind<CompositeNodeImpl>(impl)) {}

Node CompositeNode::getCompositeContainer() const
{
    return getValidCompositeNodeImpl()->container();
}

const char* CompositeNode::staticGetFullyQualifiedKobjTypeName()
{
    return CompositeNodeImpl::kTypeName;
}

CompositeNodeImpl* CompositeNode::getCompositeNodeImpl() const noexcept
{
    return static_cast<CompositeNodeImpl*>(getImpl());
}

CompositeNodeImpl* CompositeNode::getValidCompositeNodeImpl() const
{
    return static_cast<CompositeNodeImpl*>(getValidImpl());
}

} // namespace Tova2
