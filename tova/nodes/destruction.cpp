#include "nodes/destruction.h"

#include "nodes/nodeimpl.h"

#include <utility>
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

std::vector<std::shared_ptr<void>>& doomedContents()
{
    static auto* const contents = new std::vector<std::shared_ptr<void>>;
    return *contents;
}

void drain()
{
    auto& nodes = doomed();
    ++openDelays; // deleting a node dooms its children
    while (!nodes.empty() || !doomedContents().empty()) {
        std::exchange(doomedContents(), {}).clear();
        if (nodes.empty())
            continue;
        NodeImpl* const node = nodes.back();
        nodes.pop_back();
        node->deleteIfUnheld();
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
    if (--openDelays == 0 && !(doomed().empty() && doomedContents().empty()))
        drain();
}

void dispose(NodeImpl* node)
{
    doomed().push_back(node);
    if (openDelays == 0)
        drain();
}

void dispose(std::shared_ptr<void> content)
{
    if (openDelays > 0)
        doomedContents().push_back(std::move(content));
}

} // namespace Tova2
