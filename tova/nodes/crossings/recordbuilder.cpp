#include "nodes/crossings/recordbuilder.h"

#include "nodes/crossings/prefetch.h"
#include "nodes/crossings/slicedloop.h"
#include "nodes/weakrefaccess.h"

#include <utility>

namespace Tova2 {

namespace {

constexpr std::size_t kBatch = 1024; // crossings that are collected
constexpr std::size_t kBlock = 256;  // and those that are fetched for

} // namespace

RecordBuilder::RecordBuilder(State& state) : m_state(state), m_pairs(state)
{
    m_update.itemOfSlot.resize(state.nodes.size());
    m_update.items.reserve(state.affected.size());
}

bool RecordBuilder::run(Host::TaskBudget& budget)
{
    while (m_nodeCursor < m_state.affected.size() || !m_jobs.empty()) {
        if (!collect(budget) || !build(budget))
            return false;
    }
    return true;
}

bool RecordBuilder::collect(Host::TaskBudget& budget)
{
    const auto& slots = m_state.affected;
    const auto isFull = [this] { return !m_jobs.empty() && m_jobs.back().end >= kBatch; };
    for (; m_nodeCursor < slots.size() && !isFull(); ++m_nodeCursor) {
        if (!m_pairs.add(slots[m_nodeCursor], budget))
            return false;
        m_jobs.push_back({slots[m_nodeCursor], m_pairs.pairs().size()});
    }
    return true;
}

bool RecordBuilder::build(Host::TaskBudget& budget)
{
    if (!sliced(m_pairCursor, m_pairs.pairs().size(), kBlock, budget,
                [this](std::size_t from, std::size_t to) { addRecords(from, to); }))
        return false;
    endNodes(m_pairCursor);
    m_jobs.clear();
    m_jobCursor = 0;
    m_pairs.clear();
    m_pairCursor = 0;
    return true;
}

void RecordBuilder::addRecords(std::size_t from, std::size_t to)
{
    const auto pairs = m_pairs.pairs();
    fetch(pairs.subspan(from, to - from));
    for (std::size_t i = from; i < to; ++i) {
        endNodes(i);
        if (m_records.capacity() == 0)
            m_records.reserve(m_jobs[m_jobCursor].end - i);
        addRecord(m_jobs[m_jobCursor].slot, pairs[i]);
    }
}

void RecordBuilder::fetch(std::span<const CrossingPair> pairs) const
{
    for (const CrossingPair& pair : pairs) {
        prefetch(&m_state.segments[pair.vertical]);
        prefetch(&m_state.segments[pair.horizontal]);
    }
    for (const CrossingPair& pair : pairs) {
        prefetch(&m_state.nodeOf(m_state.segments[pair.vertical]));
        prefetch(&m_state.nodeOf(m_state.segments[pair.horizontal]));
    }
    for (const CrossingPair& pair : pairs) {
        prefetch(WeakRefAccess::copied(m_state.nodeOf(m_state.segments[pair.vertical]).node));
        prefetch(WeakRefAccess::copied(m_state.nodeOf(m_state.segments[pair.horizontal]).node));
    }
}

void RecordBuilder::addRecord(std::uint32_t slot, const CrossingPair& pair)
{
    const std::uint32_t v = m_state.segments[pair.vertical].node;
    const std::uint32_t h = m_state.segments[pair.horizontal].node;
    m_records.push_back(record(pair, v == slot, m_isSecond));
    m_isSecond = v == h && !m_isSecond;
}

PathIntersection RecordBuilder::record(const CrossingPair& pair, bool isVerticals,
                                       bool isSecondOfOwn)
{
    const PathSegment& v = m_state.segments[pair.vertical];
    const PathSegment& h = m_state.segments[pair.horizontal];
    const double x = v.p1.x, y = h.p1.y;
    const bool isFirst = v.node == h.node ? !isSecondOfOwn : hasPrecedence(h, v) != isVerticals;
    return {x,
            y,
            isFirst ? 0u : 1u,
            m_state.nodeOf(isVerticals ? h : v).node,
            {y - v.p1.y, x - h.p1.x, v.p2.y - y, h.p2.x - x}};
}

void RecordBuilder::endNodes(std::size_t pairCursor)
{
    for (; m_jobCursor < m_jobs.size() && m_jobs[m_jobCursor].end <= pairCursor; ++m_jobCursor)
        endNode(m_jobs[m_jobCursor].slot);
}

void RecordBuilder::endNode(std::uint32_t slot)
{
    CrossingNode& node = m_state.nodes[slot];
    auto records = std::exchange(m_records, {});
    m_isSecond = false;
    if (!node.node.isValid() || (records.empty() && !node.hasPublished))
        return;
    node.hasPublished = !records.empty();
    m_update.items.push_back({node.node, std::move(records)});
    m_update.itemOfSlot[slot] = static_cast<std::uint32_t>(m_update.items.size());
}

} // namespace Tova2
