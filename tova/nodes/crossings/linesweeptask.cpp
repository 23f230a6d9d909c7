#include "nodes/crossings/linesweeptask.h"

namespace Tova2 {

bool LineSweepTask::runSteps(Host::TaskBudget& budget)
{
    if (!m_full && !m_incremental) {
        if (state().dirty.empty())
            return true;
        if (IncrementalSweep::isWorthwhile(state()))
            m_incremental = std::make_unique<IncrementalSweep>(state());
        else
            m_full = std::make_unique<FullSweep>(state());
    }
    return m_full ? m_full->run(budget) : m_incremental->run(budget);
}

} // namespace Tova2
