#include "nodes/crossings/publishtask.h"

#include "nodes/crossings/prunetask.h"
#include "nodes/crossings/slicedloop.h"

#include <utility>

namespace Tova2 {

PublishTask::PublishTask(StatePtr state, std::weak_ptr<Host::OrderedTaskSession> session, int round)
    : PathXWorkerTask(std::move(state)), m_session(std::move(session)), m_round(round)
{}

bool PublishTask::runSteps(Host::TaskBudget& budget)
{
    if (m_phase == Phase::Begin && !begin())
        return true;
    const auto& slots = state().affected;
    if (m_phase == Phase::Build) {
        if (!slicedEach(m_cursor, slots.size(), budget, [&](std::size_t i) { build(slots[i]); }))
            return false;
        m_cursor = 0;
        m_phase = Phase::Finish;
        deliver();
        if (!state().source)
            return true;
    }
    if (!slicedEach(m_cursor, slots.size(), budget, [&](std::size_t i) { finish(slots[i]); }))
        return false;
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
    m_isAnyLeftOut = isLate;
    state().newlyPending.clear();
    m_itemOf.resize(state().nodes.size());
    m_update.items.reserve(state().affected.size());
    m_phase = Phase::Build;
    return true;
}

void PublishTask::startAnother(int round)
{
    if (const auto session = m_session.lock())
        addPass(*session, sharedState(), m_session, round);
}

bool PublishTask::isLeftOut(std::uint32_t slot) const
{
    return m_isAnyLeftOut && state().nodes[slot].isPending();
}

void PublishTask::build(std::uint32_t slot)
{
    CrossingNode& node = state().nodes[slot];
    if (!node.node.isValid())
        return;
    m_update.items.push_back({node.node, {}});
    m_itemOf[slot] = static_cast<std::uint32_t>(m_update.items.size());
    if (!isLeftOut(slot))
        m_update.items.back().crossings = recordsOf(slot);
    node.hasPublished = !m_update.items.back().crossings.empty();
}

std::vector<PathIntersection> PublishTask::recordsOf(std::uint32_t slot)
{
    const TableBlock block = state().pairBlocks[slot];
    std::vector<PathIntersection> records;
    records.reserve(block.count);
    bool isSecond = false; // of two for one crossing of a path with itself
    for (std::uint32_t i = 0; i < block.count; ++i) {
        prefetch(block.first + i, state().pairs.size());
        const CrossingPair pair = state().pairs[block.first + i];
        const std::uint32_t v = state().segments[pair.vertical].node;
        const std::uint32_t h = state().segments[pair.horizontal].node;
        if (!isLeftOut(v == slot ? h : v))
            records.push_back(record(pair, v == slot, isSecond));
        isSecond = v == h && !isSecond;
    }
    return records;
}

void PublishTask::prefetch(std::size_t pair, std::size_t end)
{
    // The pieces of the other paths lie anywhere. Blocks follow each other in most cases.
    constexpr std::size_t kAhead = 12;
    if (pair + kAhead >= end)
        return;
    const CrossingPair& later = state().pairs[pair + kAhead];
    __builtin_prefetch(&state().segments[later.vertical]);
    __builtin_prefetch(&state().segments[later.horizontal]);
    const CrossingPair& next = state().pairs[pair + kAhead / 2];
    __builtin_prefetch(&state().nodeOf(state().segments[next.vertical]).node);
    __builtin_prefetch(&state().nodeOf(state().segments[next.horizontal]).node);
}

PathIntersection PublishTask::record(const CrossingPair& pair, bool isVerticals, bool isSecondOfOwn)
{
    const PathSegment& v = state().segments[pair.vertical];
    const PathSegment& h = state().segments[pair.horizontal];
    const double x = v.p1.x, y = h.p1.y;
    const bool isFirst = v.node == h.node ? !isSecondOfOwn : hasPrecedence(h, v) != isVerticals;
    return {x,
            y,
            isFirst ? 0u : 1u,
            state().nodeOf(isVerticals ? h : v).node,
            {y - v.p1.y, x - h.p1.x, v.p2.y - y, h.p2.x - x}};
}

void PublishTask::deliver()
{
    leaveOutLate();
    state().isPublished = true;
    state().publishedCount = state().pairCount / 2;
    if (!m_update.items.empty())
        state().results->crossingsFound(std::move(m_update));
}

void PublishTask::leaveOutLate()
{
    if (state().deathsSeen != WeakRef::deathCount()) {
        for (std::size_t slot = 0; slot < state().nodes.size(); ++slot)
            PruneTask::prune(state(), slot);
        state().deathsSeen = WeakRef::deathCount();
    }
    for (const std::uint32_t slot : std::exchange(state().newlyPending, {}))
        leaveOut(slot);
}

void PublishTask::leaveOut(std::uint32_t slot)
{
    const auto crossingsOf = [this](std::uint32_t of) -> std::vector<PathIntersection>* {
        const std::uint32_t item = of < m_itemOf.size() ? m_itemOf[of] : 0;
        return item ? &m_update.items[item - 1].crossings : nullptr;
    };
    const CrossingNode& node = state().nodes[slot];
    if (auto* const own = crossingsOf(slot))
        own->clear();
    const TableBlock block = state().pairBlocks[slot];
    for (std::uint32_t i = 0; i < block.count; ++i) {
        const CrossingPair pair = state().pairs[block.first + i];
        for (const std::uint32_t id : {pair.vertical, pair.horizontal}) {
            if (auto* const others = crossingsOf(state().segments[id].node))
                std::erase_if(*others, [&](const auto& one) { return one.other == node.node; });
        }
    }
}

void PublishTask::finish(std::uint32_t slot)
{
    state().nodes[slot].isAffected = false;
    state().freeIfGone(slot);
}

} // namespace Tova2
