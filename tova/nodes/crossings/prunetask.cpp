#include "nodes/crossings/prunetask.h"

#include "nodes/crossings/slicedloop.h"
#include "nodes/weakrefaccess.h"

namespace Tova2 {

void PruneTask::prune(State& state, std::size_t slot)
{
    if (state.nodes[slot].isRegistered && !state.nodes[slot].node.isValid())
        state.queueRemoval(static_cast<std::uint32_t>(slot));
}

bool PruneTask::runSteps(Host::TaskBudget& budget)
{
    if (m_cursor == 0)
        m_deaths = WeakRefAccess::deathCount();
    if (m_deaths == state().deathsSeen)
        return true;
    const bool isThrough = slicedEach(m_cursor, state().nodes.size(), budget,
                                      [this](std::size_t slot) { prune(state(), slot); });
    if (isThrough)
        state().deathsSeen = m_deaths;
    return isThrough;
}

} // namespace Tova2
