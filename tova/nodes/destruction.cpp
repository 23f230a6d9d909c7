#include "nodes/destruction.h"

#include "nodes/nodeimpl.h"

#include <vector>

namespace Tova2 {

namespace {

int openDelays = 0;

std::vector<NodeImpl*>& doomed()
{
    // Never destroyed: handles in static objects are dropped after it would be.
    static auto* const nodes = new std::vector<NodeImpl*>;
    return *nodes;
}

void drain()
{
    auto& nodes = doomed();
    ++openDelays; // deleting a node dooms its children
    while (!nodes.empty()) {
        NodeImpl* const node = nodes.back();
        nodes.pop_back();
        node->deleteNow();
    }
    --openDelays;
}

} // namespace

DestructionDelay::DestructionDelay() noexcept
{
    ++openDelays;
}

DestructionDelay::~DestructionDelay()
{
    if (--openDelays == 0 && !doomed().empty())
        drain();
}

void dispose(NodeImpl* node)
{
    doomed().push_back(node);
    if (openDelays == 0)
        drain();
}

} // namespace Tova2
