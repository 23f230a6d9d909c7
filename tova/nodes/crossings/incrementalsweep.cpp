#include "nodes/crossings/incrementalsweep.h"

#include "nodes/crossings/slicedloop.h"

#include <algorithm>

namespace Tova2 {

namespace {

/// Of pieces that are in no index; beyond it scans take more time than sorting all anew.
std::size_t looseLimit(std::size_t liveCount)
{
    return std::clamp<std::size_t>(liveCount / 64, 64, 512);
}

bool cross(const PathSegment& vertical, const PathSegment& horizontal)
{
    return horizontal.p1.x < vertical.p1.x && vertical.p1.x < horizontal.p2.x &&
           vertical.p1.y < horizontal.p1.y && horizontal.p1.y < vertical.p2.y;
}

} // namespace

bool IncrementalSweep::isWorthwhile(State& state)
{
    constexpr std::size_t kSlack = 1024;
    const std::size_t limit = looseLimit(state.liveCount());
    if (state.loose.size() > 8 * limit || state.dirty.size() > limit ||
        state.segments.size() > 2 * state.liveCount() + kSlack ||
        state.pairs.size() > 2 * state.pairCount + kSlack)
        return false;
    std::erase_if(state.loose, [&](std::uint32_t id) { return state.segments[id].isStale; });
    return state.loose.size() <= limit;
}

IncrementalSweep::IncrementalSweep(State& state) : m_state(state), m_old(state)
{
    for (const std::uint32_t slot : state.dirty) {
        const TableBlock& block = state.nodes[slot].segments;
        for (std::uint32_t i = 0; i < block.count; ++i)
            m_segments.push_back(block.first + i);
    }
}

bool IncrementalSweep::run(Host::TaskBudget& budget)
{
    if (!slicedEach(m_segmentCursor, m_segments.size(), budget, [this](std::size_t i) {
            meetAll(m_state.segments[m_segments[i]], m_segments[i]);
        }))
        return false;
    if (!m_isPrepared)
        prepareRebuild();
    if (!slicedEach(m_nodeCursor, m_nodes.size(), budget,
                    [this](std::size_t i) { rebuild(m_nodes[i]); }))
        return false;
    commit();
    return true;
}

void IncrementalSweep::meetAll(const PathSegment& own, std::uint32_t id)
{
    if (own.isHorizontal())
        meetVerticals(own, id);
    else
        meetHorizontals(own, id);
    meetLoose(own, id);
}

void IncrementalSweep::meetVerticals(const PathSegment& own, std::uint32_t id)
{
    const auto& all = m_state.index.verticals;
    const double y = own.p1.y;
    const auto* v = std::ranges::upper_bound(all, own.p1.x, {}, &CrossingIndex::Vertical::x);
    for (; v != all.end() && v->x < own.p2.x; ++v) {
        if (v->y1 < y && y < v->y2)
            add({v->segment, id});
    }
}

void IncrementalSweep::meetHorizontals(const PathSegment& own, std::uint32_t id)
{
    const auto& all = m_state.index.horizontals;
    const double x = own.p1.x;
    const auto* h = std::ranges::upper_bound(all, own.p1.y, {}, &CrossingIndex::Horizontal::y);
    for (; h != all.end() && h->y < own.p2.y; ++h) {
        if (h->left < x && x < h->right)
            add({id, h->segment});
    }
}

void IncrementalSweep::meetLoose(const PathSegment& own, std::uint32_t id)
{
    for (const std::uint32_t otherId : m_state.loose) {
        const PathSegment& other = m_state.segments[otherId];
        if (other.isHorizontal() == own.isHorizontal())
            continue;
        // Two that have both changed meet once, when it is the vertical one's turn.
        if (!own.isHorizontal() && cross(own, other))
            add({id, otherId});
        else if (own.isHorizontal() && !m_state.nodeOf(other).isDirty && cross(other, own))
            add({otherId, id});
    }
}

void IncrementalSweep::add(const CrossingPair& pair)
{
    const PathSegment& v = m_state.segments[pair.vertical];
    const PathSegment& h = m_state.segments[pair.horizontal];
    if (v.isStale || h.isStale)
        return;
    m_added.push_back({v.node, pair});
    m_added.push_back({h.node, pair});
}

void IncrementalSweep::prepareRebuild()
{
    m_isPrepared = true;
    std::ranges::sort(m_added, [this](const Added& a, const Added& b) {
        return a.node != b.node ? a.node < b.node : m_state.comesBefore(a.pair, b.pair);
    });
    for (const std::uint32_t slot : m_state.dirty) {
        noteNode(slot);
        for (const CrossingPair& pair : m_old.of(slot)) {
            noteNode(m_state.segments[pair.vertical].node);
            noteNode(m_state.segments[pair.horizontal].node);
        }
    }
    for (const Added& added : m_added)
        noteNode(added.node);
    std::ranges::sort(m_nodes);
    m_nodes.erase(std::unique(m_nodes.begin(), m_nodes.end()), m_nodes.end());
}

void IncrementalSweep::noteNode(std::uint32_t node)
{
    if (m_nodes.empty() || m_nodes.back() != node)
        m_nodes.push_back(node);
}

bool IncrementalSweep::isObsolete(const CrossingPair& pair) const
{
    return m_state.nodeOf(m_state.segments[pair.vertical]).isDirty ||
           m_state.nodeOf(m_state.segments[pair.horizontal]).isDirty;
}

void IncrementalSweep::rebuild(std::uint32_t node)
{
    const auto old = m_old.of(node);
    std::vector<CrossingPair> kept;
    for (const CrossingPair& pair : old) {
        if (!isObsolete(pair))
            kept.push_back(pair);
    }
    const auto added = std::ranges::equal_range(m_added, node, {}, &Added::node);
    Rebuilt rebuilt{node, old.size(), {}};
    rebuilt.pairs.reserve(kept.size() + added.size());
    auto next = kept.cbegin();
    for (const Added& one : added) {
        while (next != kept.cend() && m_state.comesBefore(*next, one.pair))
            rebuilt.pairs.push_back(*next++);
        rebuilt.pairs.push_back(one.pair);
    }
    rebuilt.pairs.insert(rebuilt.pairs.end(), next, kept.cend());
    m_rebuilt.push_back(std::move(rebuilt));
}

void IncrementalSweep::commit()
{
    std::size_t size = m_state.pairs.size();
    for (const Rebuilt& rebuilt : m_rebuilt)
        size += rebuilt.pairs.size();
    m_state.checkSize(size);
    for (const Rebuilt& rebuilt : m_rebuilt) {
        CrossingNode& node = m_state.nodes[rebuilt.node];
        m_state.pairCount += rebuilt.pairs.size() - rebuilt.oldCount;
        node.pairsPass = m_state.wholePasses;
        node.pairs = {static_cast<std::uint32_t>(m_state.pairs.size()),
                      static_cast<std::uint32_t>(rebuilt.pairs.size())};
        for (const CrossingPair& pair : rebuilt.pairs)
            m_state.pairs.push_back(pair);
        m_state.markAffected(rebuilt.node);
    }
    for (const std::uint32_t slot : m_state.dirty)
        m_state.nodes[slot].isDirty = false;
    m_state.dirty.clear();
}

} // namespace Tova2
