#pragma once

#include "nodes/nodefactories.h"
#include "nodes/nodeimpl.h"

namespace Tova2 {

/// The index of the factory that makes an `Impl`; registered on first use.
template <class Impl>
std::uint64_t factoryIndex()
{
    static const std::uint64_t index =
        NodeFactories::add([]() -> NodeImpl* { return makeNode<Impl>(); });
    return index;
}

/// The implementation if it is of this kind, else null: a handle never holds another kind than its
/// own.
template <class Impl>
NodeImpl* checkedKind(NodeImpl* impl)
{
    return dynamic_cast<Impl*>(impl);
}

/// The element of a handle, made first if need be; throws tova:nodes/InvalidNode for an empty one.
inline NodeImpl* implBehind(const Node& node)
{
    return static_cast<NodeImpl*>(const_cast<Vetra::Referenced*>(node.getReferenced()));
}

/// The node as a handle of its own kind; throws tova:nodes/InvalidNode when it is of another. For
/// property descriptors, which know a node's class only by its values.
template <class Handle>
Handle nodeAs(const Node& node)
{
    Handle handle(implBehind(node));
    handle.guaranteeValid();
    return handle;
}

} // namespace Tova2
