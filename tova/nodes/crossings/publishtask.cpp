// Ends a pass: makes the records of all nodes whose crossings are others, and hands them over as
// one update, so that nobody sees half of them. The records show the paths as they were when
// this pass took them; what has changed since is for the next one. Only what has left must not
// be in them: for each such node the items that name it are marked, and whoever takes a marked
// item drops those records. O(k) for k records, and O(d) for a node that leaves with d
// crossings; of our own making. Phases: build the records, settle what has left and hand over,
// let the receiver hand on node by node, finish the books.
#include "nodes/crossings/publishtask.h"

#include "nodes/crossings/prunetask.h"
#include "nodes/crossings/slicedloop.h"
#include "nodes/weakrefaccess.h"

#include <utility>

namespace Tova2 {

PublishTask::PublishTask(StatePtr state, std::weak_ptr<Host::OrderedTaskSession> session, int round)
    : PathXWorkerTask(std::move(state))
    , m_session(std::move(session))
    , m_round(round)
    , m_gonePairs(this->state())
{}

const std::array<PublishTask::Phase, 4> PublishTask::kPhases{
    &PublishTask::build,
    &PublishTask::settle,
    &PublishTask::handOn,
    &PublishTask::finish,
};

bool PublishTask::runSteps(Host::TaskBudget& budget)
{
    if (!m_builder && !begin())
        return true;
    for (; m_phase < kPhases.size(); ++m_phase) {
        if (!(this->*kPhases[m_phase])(budget))
            return false;
        if (!state().source)
            return true;
        m_cursor = 0;
    }
    state().affected.clear();
    if (!state().isIdle())
        startAnother(0);
    return true;
}

bool PublishTask::begin()
{
    constexpr int kLastRound = 1;
    const bool isLate = !state().updates.empty() || !state().removals.empty();
    if (isLate && m_round < kLastRound) {
        startAnother(m_round + 1);
        return false;
    }
    m_builder.emplace(state());
    return true;
}

void PublishTask::startAnother(int round)
{
    if (const auto session = m_session.lock())
        addPass(*session, sharedState(), m_session, round);
}

// Until nothing more has gone, so that nothing of it is handed over.
bool PublishTask::settle(Host::TaskBudget& budget)
{
    do {
        if (!pruneSome(budget) || !leaveOutGone(budget))
            return false;
    } while (state().deathsSeen != WeakRefAccess::deathCount());
    deliver();
    return true;
}

bool PublishTask::pruneSome(Host::TaskBudget& budget)
{
    if (state().deathsSeen == WeakRefAccess::deathCount())
        return true;
    constexpr int kPatience = 4; // with nodes that die between any two slices
    Host::TaskBudget endless;
    if (m_deaths != WeakRefAccess::deathCount()) {
        m_pruneCursor = 0;
        m_deaths = WeakRefAccess::deathCount();
        ++m_pruneCount;
    }
    const bool isThrough =
        slicedEach(m_pruneCursor, state().nodes.size(), m_pruneCount > kPatience ? endless : budget,
                   [this](std::size_t slot) { PruneTask::prune(state(), slot); });
    if (isThrough)
        state().deathsSeen = m_deaths;
    return isThrough;
}

bool PublishTask::leaveOutGone(Host::TaskBudget& budget)
{
    const auto& waiting = state().removals;
    while (m_goneCursor < waiting.size()) {
        const std::uint32_t slot = waiting[m_goneCursor];
        m_builder->update().gone.insert(state().nodes[slot].node);
        if (!m_isGathered && !(m_isGathered = m_gonePairs.add(slot, budget)))
            return false;
        const auto pairs = m_gonePairs.pairs();
        if (!slicedEach(m_cursor, pairs.size(), budget, [&](std::size_t i) { leaveOut(pairs[i]); }))
            return false;
        m_gonePairs.clear();
        m_isGathered = false;
        m_cursor = 0;
        ++m_goneCursor;
        if (budget.isSpentAfterStep())
            return false;
    }
    return true;
}

// One of a node with itself comes twice, one between two that have gone with each of them.
void PublishTask::leaveOut(const CrossingPair& pair)
{
    auto& update = m_builder->update();
    int goneCount = 0;
    for (const std::uint32_t id : {pair.vertical, pair.horizontal}) {
        const std::uint32_t slot = state().segments[id].node;
        goneCount += update.gone.contains(state().nodes[slot].node);
        if (const std::uint32_t item = update.itemOfSlot[slot])
            update.items[item - 1].hasGone = true;
    }
    const bool isOwn =
        state().segments[pair.vertical].node == state().segments[pair.horizontal].node;
    m_leftOut += isOwn ? 1 : goneCount == 1 ? 2 : 0;
}

void PublishTask::deliver()
{
    state().isPublished = true;
    state().publishedCount = (state().pairCount - m_leftOut) / 2;
    auto& update = m_builder->update();
    if (!update.items.empty())
        state().results->crossingsFound(std::move(update));
}

bool PublishTask::handOn(Host::TaskBudget& budget)
{
    return state().results->handOn(budget);
}

bool PublishTask::finish(Host::TaskBudget& budget)
{
    const auto& slots = state().affected;
    return slicedEach(m_cursor, slots.size(), budget, [&](std::size_t i) {
        state().nodes[slots[i]].isAffected = false;
        state().freeIfGone(slots[i]);
    });
}

} // namespace Tova2
