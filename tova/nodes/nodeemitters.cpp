#include "tova/nodes/nodeemitters.h"

#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"

#include "tova/nodes/node.h"

namespace Tova2 {

namespace {

NodeEmitters* emittersOf(const NodeImpl& impl)
{
    return impl.extras() ? impl.extras()->emitters.get() : nullptr;
}

} // namespace

NodeEmitters& Node::madeEmitters()
{
    auto& emitters = getValidImpl()->madeExtras().emitters;
    if (!emitters)
        emitters = std::make_unique<NodeEmitters>();
    return *emitters;
}

void Node::disconnectFromMousePressEmitter(Vemit::Listener* listener)
{
    if (NodeEmitters* const emitters = emittersOf(*getValidImpl()))
        emitters->mousePress.disconnect(listener);
}

void Node::disconnectFromMouseReleaseEmitter(Vemit::Listener* listener)
{
    if (NodeEmitters* const emitters = emittersOf(*getValidImpl()))
        emitters->mouseRelease.disconnect(listener);
}

} // namespace Tova2
