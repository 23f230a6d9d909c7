#pragma once

#include "tova/nodes/node.h"

namespace Tova2 {

class CompositeNodeImpl;

/// One node made of parts. The parts are children of an inner container, which is made with the
/// composite, is its child, and lives at least as long. The composite itself draws nothing.
class TOVA_EXPORT CompositeNode : public Node {
public:
    CompositeNode();
    explicit CompositeNode(CompositeNodeImpl* impl);
    /// Empty when the element is of another kind.
    explicit CompositeNode(NodeImpl* impl);

    /// A `ContainerNode`: where to parent the parts.
    Node getCompositeContainer() const;

    static const char* staticGetFullyQualifiedKobjTypeName();

protected:
    CompositeNodeImpl* getCompositeNodeImpl() const noexcept;
    CompositeNodeImpl* getValidCompositeNodeImpl() const;
};

} // namespace Tova2
