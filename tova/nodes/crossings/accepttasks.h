#pragma once

#include "nodes/crossings/pathxworkertask.h"

#include <cstddef>

namespace Tova2 {

/// Drops the nodes that have left from the tables.
class AcceptRemovedNodesTask final : public PathXWorkerTask {
public:
    using PathXWorkerTask::PathXWorkerTask;

protected:
    bool runSteps(Host::TaskBudget& budget) override;
};

/// Asks for the nodes that have changed and takes their pieces. Those that change while it runs
/// wait for the next pass.
class AcceptUpdatedNodesTask final : public PathXWorkerTask {
public:
    using PathXWorkerTask::PathXWorkerTask;

protected:
    bool runSteps(Host::TaskBudget& budget) override;

private:
    void accept(std::uint32_t slot);
    void take(std::uint32_t slot);
    void takeSegment(CrossingNode& node, const PathSegment& candidate);

    CrossingPath m_path;
    std::size_t m_left = 0;
    bool m_hasBegun = false;
};

} // namespace Tova2
