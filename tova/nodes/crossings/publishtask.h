#pragma once

#include "nodes/crossings/pathxworkertask.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Tova2 {

/// Makes the records of the nodes whose crossings are different, and hands them over at once.
class PublishTask final : public PathXWorkerTask {
public:
    /// In the first `round` what has changed during the pass is taken in before; afterwards it is
    /// left out, so that steady changes do not keep the rest from being seen.
    PublishTask(StatePtr state, std::weak_ptr<Host::OrderedTaskSession> session, int round);

protected:
    bool runSteps(Host::TaskBudget& budget) override;

private:
    enum class Phase { Begin, Build, Finish };

    bool begin();
    void build(std::uint32_t slot);
    PathIntersection record(const CrossingPair& pair, bool isVerticals, bool isSecondOfOwn);
    std::vector<PathIntersection> recordsOf(std::uint32_t slot);
    void prefetch(std::size_t pair, std::size_t end);
    bool isLeftOut(std::uint32_t slot) const;
    void deliver();
    void leaveOutLate();
    void leaveOut(std::uint32_t slot);
    void finish(std::uint32_t slot);
    void startAnother(int round);

    std::weak_ptr<Host::OrderedTaskSession> m_session;
    int m_round;
    bool m_isAnyLeftOut = false;
    Phase m_phase = Phase::Begin;
    std::size_t m_cursor = 0;
    PathIntersectionsUpdate m_update;
    std::vector<std::uint32_t> m_itemOf; ///< by slot: 1 + the place in the update
};

} // namespace Tova2
