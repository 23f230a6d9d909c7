#include "nodes/crossings/accepttasks.h"

#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

bool isFinite(const PathSegment& segment)
{
    // A sum is finite only if all its terms are; the division keeps finite ones from overflowing.
    return std::isfinite(segment.p1.x / 8 + segment.p1.y / 8 + segment.p2.x / 8 + segment.p2.y / 8 +
                         segment.parentZ / 8 + segment.z / 8);
}

bool takeMark(CrossingNode& node)
{
    const bool isQueued = node.isUpdateQueued;
    node.isUpdateQueued = false;
    return isQueued;
}

/// False for a piece that is neither.
bool makeUpright(PathSegment& segment)
{
    if (segment.p1.x != segment.p2.x) {
        if (segment.p1.y != segment.p2.y)
            return false;
        if (segment.p1.x > segment.p2.x)
            std::swap(segment.p1, segment.p2);
    } else if (segment.p1.y > segment.p2.y) {
        std::swap(segment.p1, segment.p2);
    }
    return true;
}

} // namespace

void PathXWorkerTask::drop(std::uint32_t slot)
{
    m_state->nodes[slot].changeLevel = 0;
    m_state->dropSegments(m_state->nodes[slot]);
    m_state->markDirty(slot);
}

bool AcceptRemovedNodesTask::runSteps(Host::TaskBudget& budget)
{
    while (!state().removals.empty()) {
        const std::uint32_t slot = state().removals.front();
        state().removals.pop_front();
        state().nodes[slot].isRemovalQueued = false;
        drop(slot);
        if (budget.isSpentAfterStep())
            break;
    }
    return state().removals.empty();
}

bool AcceptUpdatedNodesTask::runSteps(Host::TaskBudget& budget)
{
    if (!std::exchange(m_hasBegun, true))
        m_left = state().updates.size();
    while (m_left > 0 && !state().updates.empty()) {
        --m_left;
        const std::uint32_t slot = state().updates.front();
        state().updates.pop_front();
        accept(slot);
        if (!state().source || budget.isSpentAfterStep())
            break;
    }
    return m_left == 0 || state().updates.empty() || !state().source;
}

void AcceptUpdatedNodesTask::accept(std::uint32_t slot)
{
    if (state().nodes[slot].isRemovalQueued) {
        state().updates.push_back(slot); // it left and came back: first the one, then the other
        return;
    }
    if (!takeMark(state().nodes[slot]))
        return;
    if (!state().nodes[slot].node.isValid()) {
        state().nodes[slot].isRegistered = false;
        drop(slot);
        return;
    }
    m_path = {std::move(m_path.points), 0, 0};
    m_path.points.clear();
    const WeakRef ref = state().nodes[slot].node;
    const bool takesPart = state().source->describe(ref, m_path);
    // The source may have done anything, so nothing is held across the call.
    CrossingNode& node = state().nodes[slot];
    if (!state().source || !node.isRegistered || node.node != ref)
        return;
    ++node.changeLevel;
    node.sortRank = node.rank;
    state().dropSegments(node);
    state().markDirty(slot);
    if (takesPart)
        take(slot);
}

void AcceptUpdatedNodesTask::take(std::uint32_t slot)
{
    const auto& points = m_path.points;
    state().checkSize(points.size());
    CrossingNode& node = state().nodes[slot];
    node.segments = {static_cast<std::uint32_t>(state().segments.size()), 0};
    for (std::size_t i = 0; i + 1 < points.size(); ++i) {
        takeSegment(node, {points[i], points[i + 1], m_path.parentZ, m_path.z,
                           static_cast<std::int32_t>(i), slot, node.changeLevel, false});
    }
}

void AcceptUpdatedNodesTask::takeSegment(CrossingNode& node, const PathSegment& candidate)
{
    PathSegment segment = candidate;
    if (!isFinite(segment) || !makeUpright(segment))
        return;
    state().append(segment);
    ++node.segments.count;
}

} // namespace Tova2
