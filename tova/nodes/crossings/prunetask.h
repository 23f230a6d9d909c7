#pragma once

#include "nodes/crossings/pathxworkertask.h"

#include <cstddef>
#include <cstdint>

namespace Tova2 {

/// Queues the removal of nodes that have died without notice.
class PruneTask final : public PathXWorkerTask {
public:
    using PathXWorkerTask::PathXWorkerTask;

    /// Looks at the node in `slot`.
    static void prune(State& state, std::size_t slot);

protected:
    bool runSteps(Host::TaskBudget& budget) override;

private:
    std::size_t m_cursor = 0;
    std::uint64_t m_deaths = 0;
};

} // namespace Tova2
