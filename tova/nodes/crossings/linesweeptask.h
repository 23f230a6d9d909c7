#pragma once

#include "nodes/crossings/fullsweep.h"
#include "nodes/crossings/incrementalsweep.h"
#include "nodes/crossings/pathxworkertask.h"

#include <memory>

namespace Tova2 {

/// Brings the crossings in the tables up to date with the pieces.
class LineSweepTask final : public PathXWorkerTask {
public:
    using PathXWorkerTask::PathXWorkerTask;

protected:
    bool runSteps(Host::TaskBudget& budget) override;

private:
    std::unique_ptr<FullSweep> m_full;
    std::unique_ptr<IncrementalSweep> m_incremental;
};

} // namespace Tova2
