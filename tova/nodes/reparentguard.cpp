#include "nodes/reparentguard.h"

#include "nodes/nodeimpl.h"

#include <unordered_set>

namespace Tova2 {

namespace {

std::unordered_set<const NodeImpl*>& moving()
{
    static auto* const nodes = new std::unordered_set<const NodeImpl*>;
    return *nodes;
}

} // namespace

ReparentGuard::ReparentGuard(NodeImpl& node)
    : m_node(&node), m_isOutermost(moving().insert(&node).second)
{}

ReparentGuard::~ReparentGuard()
{
    if (m_isOutermost)
        moving().erase(m_node.get());
}

bool ReparentGuard::isMoving(const NodeImpl& node)
{
    return moving().contains(&node);
}

} // namespace Tova2
