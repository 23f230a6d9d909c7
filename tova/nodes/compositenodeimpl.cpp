#include "nodes/compositenodeimpl.h"

namespace Tova2 {

CompositeNodeImpl::CompositeNodeImpl()
{
    auto* const container = makeNode<ContainerNodeImpl>();
    m_container = container->handle();
    // Nobody holds the composite yet, and to become a parent must not be its first and last
    // reference.
    increment();
    container->setParent(this);
    decrement();
}

} // namespace Tova2
