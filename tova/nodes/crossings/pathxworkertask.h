#pragma once

#include "nodes/crossings/crossingstate.h"

#include "host/tasksession.h"

#include <memory>

namespace Tova2 {

/// Base of the steps of a pass.
class PathXWorkerTask : public Host::Task {
public:
    using StatePtr = std::shared_ptr<PathIntersectionsWorker::State>;

    explicit PathXWorkerTask(StatePtr state) : m_state(std::move(state)) {}

    bool run(Host::TaskBudget& budget) final { return !m_state->source || runSteps(budget); }

protected:
    using State = PathIntersectionsWorker::State;

    virtual bool runSteps(Host::TaskBudget& budget) = 0;
    State& state() const { return *m_state; }
    /// Takes a node that is gone out of the tables.
    void drop(std::uint32_t slot);
    const StatePtr& sharedState() const { return m_state; }

private:
    StatePtr m_state;
};

/// Adds the tasks of one pass; `round` is that of its PublishTask.
void addPass(Host::OrderedTaskSession& session, const PathXWorkerTask::StatePtr& state,
             const std::weak_ptr<Host::OrderedTaskSession>& self, int round);

} // namespace Tova2
