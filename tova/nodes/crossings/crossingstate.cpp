#include "nodes/crossings/crossingstate.h"

#include "vetra/error.h"

#include <tuple>

namespace Tova2 {

using State = PathIntersectionsWorker::State;

void State::checkSize(std::size_t size) const
{
    if (size > tableLimit)
        throw Vetra::Error("tova:nodes", "list<T> too long");
}

std::uint32_t State::slotOf(const WeakRef& node)
{
    const auto found = slots.find(node);
    if (found != slots.end())
        return found->second;
    if (freeSlots.empty()) {
        checkSize(nodes.size() + 1);
        freeSlots.push_back(static_cast<std::uint32_t>(nodes.size()));
        nodes.emplace_back();
    }
    const std::uint32_t slot = freeSlots.back();
    slots.emplace(node, slot);
    freeSlots.pop_back();
    nodes[slot].node = node;
    return slot;
}

void State::queueUpdate(const WeakRef& node)
{
    const std::uint32_t slot = slotOf(node);
    if (!nodes[slot].isRegistered)
        setRank(slot);
    if (nodes[slot].isUpdateQueued)
        return;
    nodes[slot].isUpdateQueued = true;
    updates.push_back(slot);
}

void State::setRank(std::uint32_t slot)
{
    nodes[slot].isRegistered = true;
    nodes[slot].rank = ++lastRank;
    order.push_back({lastRank, slot});
}

void State::queueRemoval(std::uint32_t slot)
{
    CrossingNode& node = nodes[slot];
    node.isRegistered = false;
    node.isUpdateQueued = false; // what is in the queue is void without it
    if (node.isRemovalQueued)
        return;
    node.isRemovalQueued = true;
    removals.push_back(slot);
}

void State::dropSegments(CrossingNode& node)
{
    for (std::uint32_t i = 0; i < node.segments.count; ++i) {
        PathSegment& segment = segments[node.segments.first + i];
        segment.isStale = true;
        --(segment.isHorizontal() ? horizontalCount : verticalCount);
    }
    node.segments = {};
}

void State::append(const PathSegment& segment)
{
    checkSize(segments.size() + 1);
    loose.push_back(static_cast<std::uint32_t>(segments.size()));
    segments.push_back(segment);
    ++(segment.isHorizontal() ? horizontalCount : verticalCount);
}

void State::markDirty(std::uint32_t slot)
{
    isPublished = false;
    if (nodes[slot].isDirty)
        return;
    nodes[slot].isDirty = true;
    dirty.push_back(slot);
}

void State::markAffected(std::uint32_t slot)
{
    if (nodes[slot].isAffected)
        return;
    nodes[slot].isAffected = true;
    affected.push_back(slot);
}

void State::freeIfGone(std::uint32_t slot)
{
    CrossingNode& node = nodes[slot];
    if (node.isRegistered || node.isPending() || node.isDirty || node.isAffected)
        return;
    slots.erase(node.node);
    node = CrossingNode();
    freeSlots.push_back(slot);
}

bool State::comesBefore(const CrossingPair& a, const CrossingPair& b) const
{
    const auto key = [this](const CrossingPair& pair) {
        const PathSegment& v = segments[pair.vertical];
        const PathSegment& h = segments[pair.horizontal];
        return std::tuple(v.p1.x, nodes[v.node].sortRank, v.segmentIndex, h.p1.x,
                          nodes[h.node].sortRank, h.segmentIndex);
    };
    return key(a) < key(b);
}

} // namespace Tova2
