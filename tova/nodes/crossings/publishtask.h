#pragma once

#include "nodes/crossings/pathxworkertask.h"
#include "nodes/crossings/recordbuilder.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>

namespace Tova2 {

/// Makes the records of the nodes whose crossings are different, and hands them over at once.
class PublishTask final : public PathXWorkerTask {
public:
    /// In the first `round` what has changed during the pass is taken in before; afterwards it is
    /// shown as it was, so that steady changes do not keep the rest from being seen.
    PublishTask(StatePtr state, std::weak_ptr<Host::OrderedTaskSession> session, int round);

protected:
    bool runSteps(Host::TaskBudget& budget) override;

private:
    using Phase = bool (PublishTask::*)(Host::TaskBudget&);
    static const std::array<Phase, 4> kPhases;

    bool begin();
    bool build(Host::TaskBudget& budget) { return m_builder->run(budget); }
    bool settle(Host::TaskBudget& budget);
    bool pruneSome(Host::TaskBudget& budget);
    bool leaveOutGone(Host::TaskBudget& budget);
    void leaveOut(const CrossingPair& pair);
    void deliver();
    bool handOn(Host::TaskBudget& budget);
    bool finish(Host::TaskBudget& budget);
    void startAnother(int round);

    std::weak_ptr<Host::OrderedTaskSession> m_session;
    int m_round;
    std::optional<RecordBuilder> m_builder; ///< from the first slice on
    std::size_t m_phase = 0;
    std::size_t m_cursor = 0;

    NodePairs m_gonePairs;        ///< of one node that has gone
    bool m_isGathered = false;    ///< all of them
    std::size_t m_goneCursor = 0; ///< among the removals that wait
    std::size_t m_leftOut = 0;    ///< records

    int m_pruneCount = 0;
    std::size_t m_pruneCursor = 0;
    std::uint64_t m_deaths = 0; ///< when pruning began
};

} // namespace Tova2
