#include "nodes/crossings/fullsweep.h"

#include "nodes/crossings/slicedloop.h"

#include <algorithm>
#include <utility>

namespace Tova2 {

namespace {

constexpr std::size_t kBlock = 512; // small steps in one, so that the budget costs nothing
constexpr std::size_t kYStep = 64;
constexpr std::size_t kAhead = 16; // elements from what is fetched to what is used

} // namespace

const std::array<FullSweep::Phase, 16> FullSweep::kPhases{
    &FullSweep::gather,       &FullSweep::sortVerticals, &FullSweep::sortRows,
    &FullSweep::sortStarts,   &FullSweep::sortEnds,      &FullSweep::placeVerticals,
    &FullSweep::placeRows,    &FullSweep::placeStarts,   &FullSweep::placeEnds,
    &FullSweep::sweep,        &FullSweep::lay,           &FullSweep::scatter,
    &FullSweep::markAffected, &FullSweep::commit,        &FullSweep::clean,
    &FullSweep::discard,
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
            __builtin_prefetch(&segment(sorted[std::min(i + kAhead, to - 1)].value));
            const PathSegment& v = segment(sorted[i].value);
            m_index.verticals[i] = {v.p1.x, v.p1.y, v.p2.y, sorted[i].value, v.node};
        }
    });
}

bool FullSweep::placeRows(Host::TaskBudget& budget)
{
    const auto& sorted = m_rows->items();
    if (m_cursor == 0) {
        m_index.horizontals = ScratchArray<SegmentIndex::Horizontal>(sorted.size());
        m_placeOf = ScratchArray<std::uint32_t>(sorted.size());
        m_ys.reserve(sorted.size());
        m_someYs.reserve(sorted.size() / kYStep + 1);
    }
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            const std::size_t later = sorted[std::min(i + kAhead, to - 1)].value;
            __builtin_prefetch(&segment(m_horizontalSegments[later]));
            placeRow(i, sorted[i].value);
        }
    });
}

void FullSweep::placeRow(std::size_t place, std::uint32_t number)
{
    const std::uint32_t id = m_horizontalSegments[number];
    const PathSegment& h = segment(id);
    m_index.horizontals[place] = {h.p1.y, h.p1.x, h.p2.x, id, h.node};
    m_placeOf[number] = static_cast<std::uint32_t>(place);
    m_ys.push_back(h.p1.y);
    if (place % kYStep == 0)
        m_someYs.push_back(h.p1.y);
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
            m_starting[i] = {numberOfKey(sorted[i].key), m_placeOf[sorted[i].value]};
            m_serialAt[m_starting[i].place] = static_cast<std::uint32_t>(i);
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
        for (std::size_t i = from; i < to; ++i)
            m_ending[i] = {numberOfKey(sorted[i].key), m_placeOf[sorted[i].value]};
    });
}

bool FullSweep::sweep(Host::TaskBudget& budget)
{
    return slicedEach(m_cursor, m_index.verticals.size(), budget, [this](std::size_t i) {
        advanceTo(m_index.verticals[i].x);
        meet(static_cast<std::uint32_t>(i));
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

void FullSweep::meet(std::uint32_t number)
{
    const SegmentIndex::Vertical& vertical = m_index.verticals[number];
    const std::size_t first = firstAbove(vertical.y1);
    if (first == m_ys.size() || !(m_ys[first] < vertical.y2))
        return;
    m_met.clear();
    m_active->forEach(first, firstFrom(vertical.y2, first), [this](std::size_t place) {
        m_met.push_back(std::uint64_t{m_serialAt[place]} << 32 | place);
    });
    sortMet();
    for (const std::uint64_t met : m_met)
        emit({number, static_cast<std::uint32_t>(met)});
}

std::size_t FullSweep::firstAbove(double y) const
{
    const auto block = std::ranges::upper_bound(m_someYs, y) - m_someYs.begin();
    if (block == 0)
        return 0;
    const auto from = m_ys.begin() + (block - 1) * static_cast<std::ptrdiff_t>(kYStep);
    const auto to = from + std::min<std::ptrdiff_t>(kYStep, m_ys.end() - from);
    return std::upper_bound(from, to, y) - m_ys.begin();
}

std::size_t FullSweep::firstFrom(double y, std::size_t place) const
{
    // Most verticals are short: from their upper end it is not far.
    std::size_t reach = 1;
    while (place + reach < m_ys.size() && m_ys[place + reach] < y)
        reach *= 2;
    const auto from = m_ys.begin() + static_cast<std::ptrdiff_t>(place + reach / 2);
    const auto to =
        m_ys.begin() + static_cast<std::ptrdiff_t>(std::min(place + reach, m_ys.size()));
    return std::lower_bound(from, to, y) - m_ys.begin();
}

void FullSweep::sortMet()
{
    constexpr std::size_t kFew = 64;
    if (m_met.size() <= kFew) {
        std::ranges::sort(m_met);
        return;
    }
    const auto [least, most] = std::ranges::minmax(m_met);
    for (const std::uint64_t met : m_met)
        m_sorter->insert(met >> 32);
    m_met.clear();
    m_sorter->forEach(least >> 32, (most >> 32) + 1, [this](std::size_t serial) {
        m_met.push_back(m_starting[serial].place);
        m_sorter->erase(serial);
    });
}

void FullSweep::emit(const Found& found)
{
    m_state.checkSize(2 * m_found.size() + 2);
    m_found.push_back(found);
    ++m_pairBlocks[m_index.verticals[found.vertical].node].count;
    ++m_pairBlocks[m_index.horizontals[found.row].node].count;
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
            prefetchTargets(m_found[std::min(i + kAhead, to - 1)]);
            assign(m_found[i]);
        }
    });
}

void FullSweep::prefetchTargets(const Found& found)
{
    for (const std::uint32_t node :
         {m_index.verticals[found.vertical].node, m_index.horizontals[found.row].node}) {
        const TableBlock& block = m_pairBlocks[node];
        __builtin_prefetch(&m_pairs[block.first + block.count], 1);
    }
}

void FullSweep::assign(const Found& found)
{
    const SegmentIndex::Vertical& vertical = m_index.verticals[found.vertical];
    const SegmentIndex::Horizontal& row = m_index.horizontals[found.row];
    for (const std::uint32_t node : {vertical.node, row.node}) {
        TableBlock& block = m_pairBlocks[node];
        m_pairs[block.first + block.count++] = {vertical.segment, row.segment};
    }
}

bool FullSweep::markAffected(Host::TaskBudget& budget)
{
    return slicedEach(m_cursor, m_pairBlocks.size(), budget, [this](std::size_t i) {
        const auto slot = static_cast<std::uint32_t>(i);
        const CrossingNode& node = m_state.nodes[slot];
        if (m_pairBlocks[slot].count > 0 || node.hasPublished || !node.isRegistered)
            m_state.markAffected(slot);
    });
}

bool FullSweep::commit(Host::TaskBudget&)
{
    m_state.loose.clear();
    m_state.pairCount = m_pairs.size();
    std::swap(m_state.pairs, m_pairs);
    std::swap(m_state.index, m_index);
    std::swap(m_state.pairBlocks, m_pairBlocks);
    m_state.pairBlocks.resize(m_state.nodes.size());
    if (m_isCompacting) {
        std::swap(m_state.segments, m_compacted);
        for (std::size_t slot = 0; slot < m_segmentBlocks.size(); ++slot)
            m_state.nodes[slot].segments = m_segmentBlocks[slot];
    }
    return true;
}

bool FullSweep::clean(Host::TaskBudget& budget)
{
    while (!m_state.dirty.empty()) {
        m_state.nodes[m_state.dirty.back()].isDirty = false;
        m_state.dirty.pop_back();
        if (budget.isSpentAfterStep())
            return false;
    }
    if (m_state.order.size() > 2 * m_state.slots.size()) {
        std::erase_if(m_state.order, [this](const State::Ranked& ranked) {
            const CrossingNode& node = m_state.nodes[ranked.slot];
            return node.sortRank != ranked.rank && node.rank != ranked.rank;
        });
    }
    return true;
}

bool FullSweep::discard(Host::TaskBudget& budget)
{
    // Giving back what large tables took needs time as well.
    const std::array<void (*)(FullSweep&), 10> kFree{
        [](FullSweep& s) { s.m_verticals.reset(); },
        [](FullSweep& s) { s.m_rows.reset(); },
        [](FullSweep& s) { s.m_starts.reset(); },
        [](FullSweep& s) { s.m_ends.reset(); },
        [](FullSweep& s) { s.m_index.verticals.reset(); },
        [](FullSweep& s) { s.m_index.horizontals.reset(); },
        [](FullSweep& s) { s.m_starting.reset(); },
        [](FullSweep& s) { s.m_ending.reset(); },
        [](FullSweep& s) { s.m_serialAt.reset(); },
        [](FullSweep& s) { s.m_placeOf.reset(); },
    };
    while (m_cursor < kFree.size()) {
        kFree[m_cursor++](*this);
        if (budget.isSpentAfterLongStep())
            return false;
    }
    while (m_found.freeSome() || m_pairs.freeSome() || m_compacted.freeSome()) {
        if (budget.isSpentAfterLongStep())
            return false;
    }
    return true;
}

} // namespace Tova2
