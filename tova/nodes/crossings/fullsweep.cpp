#include "nodes/crossings/fullsweep.h"

#include "nodes/crossings/slicedloop.h"

#include <algorithm>
#include <utility>

namespace Tova2 {

namespace {

constexpr std::size_t kBlock = 512; // small steps in one, so that the budget costs nothing

} // namespace

const std::array<FullSweep::Phase, 14> FullSweep::kPhases{
    &FullSweep::gather,     &FullSweep::sortVerticals, &FullSweep::sortRows,
    &FullSweep::sortStarts, &FullSweep::sortEnds,      &FullSweep::placeVerticals,
    &FullSweep::placeRows,  &FullSweep::placeStarts,   &FullSweep::placeEnds,
    &FullSweep::sweep,      &FullSweep::lay,           &FullSweep::scatter,
    &FullSweep::commit,     &FullSweep::discard,
};

FullSweep::FullSweep(State& state)
    : m_state(state)
    , m_isCompacting(state.segments.size() > 2 * state.liveCount() + 1024)
    , m_horizontalSegments(state.horizontalCount)
{
    m_verticals.emplace(ScratchArray<SortItem>(state.verticalCount));
    for (auto* const sort : {&m_rows, &m_starts, &m_ends})
        sort->emplace(ScratchArray<SortItem>(state.horizontalCount));
    m_pairBlocks.resize(state.nodes.size());
    if (m_isCompacting)
        m_segmentBlocks.resize(state.nodes.size());
}

bool FullSweep::run(Host::TaskBudget& budget)
{
    while (m_phase < kPhases.size()) {
        if (!(this->*kPhases[m_phase])(budget))
            return false;
        ++m_phase;
        m_cursor = 0;
    }
    return true;
}

bool FullSweep::gather(Host::TaskBudget& budget)
{
    return slicedEach(m_cursor, m_state.order.size(), budget,
                      [this](std::size_t i) { gather(m_state.order[i]); });
}

void FullSweep::gather(const State::Ranked& ranked)
{
    const CrossingNode& node = m_state.nodes[ranked.slot];
    if (node.sortRank != ranked.rank)
        return;
    const auto first = static_cast<std::uint32_t>(m_compacted.size());
    for (std::uint32_t i = 0; i < node.segments.count; ++i) {
        const std::uint32_t id = keep(node.segments.first + i);
        const PathSegment& kept = segment(id);
        if (!kept.isHorizontal()) {
            m_verticals->items()[m_verticalCount++] = {sortKey(kept.p1.x), id};
            continue;
        }
        const auto number = static_cast<std::uint32_t>(m_horizontalCount++);
        m_horizontalSegments[number] = id;
        m_rows->items()[number] = {sortKey(kept.p1.y), number};
        m_starts->items()[number] = {sortKey(kept.p1.x), number};
        m_ends->items()[number] = {sortKey(kept.p2.x), number};
    }
    if (m_isCompacting)
        m_segmentBlocks[ranked.slot] = {first, node.segments.count};
}

std::uint32_t FullSweep::keep(std::uint32_t id)
{
    if (!m_isCompacting)
        return id;
    m_compacted.push_back(m_state.segments[id]);
    return static_cast<std::uint32_t>(m_compacted.size() - 1);
}

bool FullSweep::placeVerticals(Host::TaskBudget& budget)
{
    const auto& sorted = m_verticals->items();
    if (m_cursor == 0)
        m_index.verticals = ScratchArray<SegmentIndex::Vertical>(sorted.size());
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            const PathSegment& v = segment(sorted[i].value);
            m_index.verticals[i] = {v.p1.x, v.p1.y, v.p2.y, sorted[i].value};
        }
    });
}

bool FullSweep::placeRows(Host::TaskBudget& budget)
{
    const auto& sorted = m_rows->items();
    if (m_cursor == 0) {
        m_index.horizontals = ScratchArray<SegmentIndex::Horizontal>(sorted.size());
        m_placeOf = ScratchArray<std::uint32_t>(sorted.size());
    }
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            const std::uint32_t id = m_horizontalSegments[sorted[i].value];
            const PathSegment& h = segment(id);
            m_index.horizontals[i] = {h.p1.y, h.p1.x, h.p2.x, id};
            m_placeOf[sorted[i].value] = static_cast<std::uint32_t>(i);
        }
    });
}

bool FullSweep::placeStarts(Host::TaskBudget& budget)
{
    const auto& sorted = m_starts->items();
    if (m_cursor == 0) {
        m_starting = ScratchArray<Starting>(sorted.size());
        m_serialAt = ScratchArray<std::uint32_t>(sorted.size());
    }
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            const std::uint32_t id = m_horizontalSegments[sorted[i].value];
            const std::uint32_t place = m_placeOf[sorted[i].value];
            m_starting[i] = {segment(id).p1.x, place, id, segment(id).node};
            m_serialAt[place] = static_cast<std::uint32_t>(i);
        }
    });
}

bool FullSweep::placeEnds(Host::TaskBudget& budget)
{
    const auto& sorted = m_ends->items();
    if (m_cursor == 0) {
        m_ending = ScratchArray<Ending>(sorted.size());
        m_active = std::make_unique<ActiveSet>(sorted.size());
        m_sorter = std::make_unique<ActiveSet>(sorted.size());
    }
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            const std::uint32_t place = m_placeOf[sorted[i].value];
            m_ending[i] = {m_index.horizontals[place].right, place};
        }
    });
}

bool FullSweep::sweep(Host::TaskBudget& budget)
{
    return slicedEach(m_cursor, m_index.verticals.size(), budget, [this](std::size_t i) {
        advanceTo(m_index.verticals[i].x);
        meet(m_index.verticals[i]);
    });
}

void FullSweep::advanceTo(double x)
{
    // What starts or ends right at x is not active there.
    for (; m_startCursor < m_starting.size() && m_starting[m_startCursor].left < x; ++m_startCursor)
        m_active->insert(m_starting[m_startCursor].place);
    for (; m_endCursor < m_ending.size() && m_ending[m_endCursor].right <= x; ++m_endCursor)
        m_active->erase(m_ending[m_endCursor].place);
}

void FullSweep::meet(const SegmentIndex::Vertical& vertical)
{
    const auto yOf = [](const SegmentIndex::Horizontal& row) { return row.y; };
    const auto& rows = m_index.horizontals;
    const auto* const first = std::ranges::upper_bound(rows, vertical.y1, {}, yOf);
    if (first == rows.end() || !(first->y < vertical.y2))
        return;
    const auto* const last = std::ranges::lower_bound(first, rows.end(), vertical.y2, {}, yOf);
    m_serials.clear();
    m_active->forEach(first - rows.begin(), last - rows.begin(),
                      [this](std::size_t place) { m_serials.push_back(m_serialAt[place]); });
    if (m_serials.empty())
        return;
    sortBySerial(m_serials);
    const std::uint32_t node = segment(vertical.segment).node;
    for (const std::uint32_t serial : m_serials)
        emit(vertical, node, serial);
}

void FullSweep::sortBySerial(std::vector<std::uint32_t>& serials)
{
    constexpr std::size_t kFew = 64;
    if (serials.size() <= kFew) {
        std::ranges::sort(serials);
        return;
    }
    for (const std::uint32_t serial : serials)
        m_sorter->insert(serial);
    const auto [least, most] = std::ranges::minmax(serials);
    serials.clear();
    m_sorter->forEach(least, most + std::size_t{1}, [this, &serials](std::size_t serial) {
        serials.push_back(static_cast<std::uint32_t>(serial));
        m_sorter->erase(serial);
    });
}

void FullSweep::emit(const SegmentIndex::Vertical& vertical, std::uint32_t node,
                     std::uint32_t serial)
{
    m_state.checkSize(2 * m_found.size() + 2);
    m_found.push_back({vertical.segment, m_starting[serial].segment});
    ++m_pairBlocks[node].count;
    ++m_pairBlocks[m_starting[serial].node].count;
}

bool FullSweep::lay(Host::TaskBudget&)
{
    std::uint32_t place = 0;
    for (TableBlock& block : m_pairBlocks) {
        block.first = place;
        place += std::exchange(block.count, 0u);
    }
    m_pairs.grow(place);
    return true;
}

bool FullSweep::scatter(Host::TaskBudget& budget)
{
    return sliced(m_cursor, m_found.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            for (const std::uint32_t id : {m_found[i].vertical, m_found[i].horizontal}) {
                TableBlock& block = m_pairBlocks[segment(id).node];
                m_pairs[block.first + block.count++] = m_found[i];
            }
        }
    });
}

bool FullSweep::commit(Host::TaskBudget&)
{
    for (std::uint32_t slot = 0; slot < m_pairBlocks.size(); ++slot) {
        CrossingNode& node = m_state.nodes[slot];
        node.isDirty = false;
        node.pairs = m_pairBlocks[slot];
        if (m_isCompacting)
            node.segments = m_segmentBlocks[slot];
        if (node.pairs.count > 0 || node.hasPublished || !node.isRegistered)
            m_state.markAffected(slot);
    }
    m_state.dirty.clear();
    m_state.loose.clear();
    m_state.pairCount = m_pairs.size();
    std::swap(m_state.pairs, m_pairs);
    std::swap(m_state.index, m_index);
    if (m_isCompacting)
        std::swap(m_state.segments, m_compacted);
    std::erase_if(m_state.order, [this](const State::Ranked& ranked) {
        const CrossingNode& node = m_state.nodes[ranked.slot];
        return node.sortRank != ranked.rank && node.rank != ranked.rank;
    });
    return true;
}

bool FullSweep::discard(Host::TaskBudget& budget)
{
    // Giving back what large tables took needs time as well.
    m_index = {};
    for (auto* const sort : {&m_verticals, &m_rows, &m_starts, &m_ends})
        sort->reset();
    const auto isSpent = [&budget] { return budget.isSpentAfterLongStep(); };
    while (m_found.freeSome() || m_pairs.freeSome()) {
        if (isSpent())
            return false;
    }
    while (m_compacted.freeSome()) {
        if (isSpent())
            return false;
    }
    return true;
}

} // namespace Tova2
