#pragma once

#include "tova/nodes/node.h"

namespace Tova2 {

class ContainerNodeImpl;

/// Groups its children, which `Node::setParent` puts there. It draws nothing, has no bounds and is
/// never hit itself, whatever its style.
class TOVA_EXPORT ContainerNode : public Node {
public:
    ContainerNode();
    explicit ContainerNode(ContainerNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit ContainerNode(NodeImpl* impl);

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    ContainerNodeImpl* getContainerNodeImpl() const noexcept;
    ContainerNodeImpl* getValidContainerNodeImpl() const;
};

} // namespace Tova2
