#include "nodes/destruction.h"

#include "nodes/nodeimpl.h"

#include <utility>
#include <vector>

namespace Tova2 {

namespace {

std::vector<NodeImpl*>& doomed()
{
    // Never destroyed: handles in static objects are dropped after it would be.
    static auto* const nodes = new std::vector<NodeImpl*>;
    return *nodes;
}

std::vector<std::shared_ptr<void>>& doomedContents()
{
    static auto* const contents = new std::vector<std::shared_ptr<void>>;
    return *contents;
}

} // namespace

void DestructionDelay::drain()
{
    auto& nodes = doomed();
    ++s_open; // deleting a node dooms its children
    while (!nodes.empty() || !doomedContents().empty()) {
        std::exchange(doomedContents(), {}).clear();
        if (nodes.empty())
            continue;
        NodeImpl* const node = nodes.back();
        nodes.pop_back();
        node->deleteIfUnheld();
    }
    --s_open;
    s_hasWaiting = false;
}

void dispose(NodeImpl* node)
{
    const DestructionDelay delay;
    DestructionDelay::s_hasWaiting = true;
    doomed().push_back(node);
}

void dispose(std::shared_ptr<void> content)
{
    if (DestructionDelay::s_open == 0)
        return;
    DestructionDelay::s_hasWaiting = true;
    doomedContents().push_back(std::move(content));
}

} // namespace Tova2
