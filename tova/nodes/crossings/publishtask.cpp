#include "nodes/crossings/publishtask.h"

#include "nodes/crossings/prunetask.h"
#include "nodes/crossings/slicedloop.h"

#include <utility>

namespace Tova2 {

PublishTask::PublishTask(StatePtr state, std::weak_ptr<Host::OrderedTaskSession> session, int round)
    : PathXWorkerTask(std::move(state)), m_session(std::move(session)), m_round(round)
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
    state().newlyPending.clear();
    m_builder.emplace(state(), isLate);
    return true;
}

void PublishTask::startAnother(int round)
{
    if (const auto session = m_session.lock())
        addPass(*session, sharedState(), m_session, round);
}

// Until nothing more is late, so that what is handed over then is true.
bool PublishTask::settle(Host::TaskBudget& budget)
{
    auto& late = state().newlyPending;
    do {
        if (!pruneSome(budget))
            return false;
        while (!late.empty()) {
            const std::uint32_t slot = late.back();
            late.pop_back();
            leaveOut(slot);
            if (budget.isSpentAfterStep())
                return false;
        }
    } while (state().deathsSeen != WeakRef::deathCount());
    deliver();
    return true;
}

bool PublishTask::pruneSome(Host::TaskBudget& budget)
{
    if (state().deathsSeen == WeakRef::deathCount())
        return true;
    constexpr int kPatience = 4; // with nodes that die between any two slices
    Host::TaskBudget endless;
    if (m_deaths != WeakRef::deathCount()) {
        m_pruneCursor = 0;
        m_deaths = WeakRef::deathCount();
        ++m_pruneCount;
    }
    const bool isThrough =
        slicedEach(m_pruneCursor, state().nodes.size(), m_pruneCount > kPatience ? endless : budget,
                   [this](std::size_t slot) { PruneTask::prune(state(), slot); });
    if (isThrough)
        state().deathsSeen = m_deaths;
    return isThrough;
}

void PublishTask::leaveOut(std::uint32_t slot)
{
    const CrossingNode& node = state().nodes[slot];
    if (auto* const own = m_builder->recordsOf(slot))
        own->clear();
    NodePairs pairs(state());
    for (const CrossingPair& pair : pairs.of(slot)) {
        for (const std::uint32_t id : {pair.vertical, pair.horizontal}) {
            if (auto* const others = m_builder->recordsOf(state().segments[id].node))
                std::erase_if(*others, [&](const auto& one) { return one.other == node.node; });
        }
    }
}

void PublishTask::deliver()
{
    state().isPublished = true;
    state().publishedCount = state().pairCount / 2;
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
