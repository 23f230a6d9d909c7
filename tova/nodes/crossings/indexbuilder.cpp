// Sorts the pieces of all nodes for a sweep. One walk in order of the nodes' ranks makes a key
// for each piece; stable sorts then bring verticals into order by x and horizontals into order
// by y, by left end and by right end, so that equals stay in order of rank. Tops and bottoms of
// the verticals are sorted too, and merged with the rows by y: that gives each vertical the
// range of rows between its ends without a search. O(n) for n pieces, six radix sorts in all;
// after the rank reduction that is usual with range trees (Gabow, Bentley and Tarjan 1984). The
// phases alternate: sort by one key, then write what that order tells.
#include "nodes/crossings/indexbuilder.h"

#include "nodes/crossings/prefetch.h"
#include "nodes/crossings/slicedloop.h"

#include <algorithm>

namespace Tova2 {

namespace {

constexpr std::size_t kBlock = 512; // small steps in one, so that the budget costs nothing
constexpr std::size_t kAhead = 16;  // elements from what is fetched to what is used

ScratchArray<SortItem> sortItems(std::size_t size)
{
    return ScratchArray<SortItem>(size);
}

} // namespace

const std::array<IndexBuilder::Phase, 13> IndexBuilder::kPhases{
    &IndexBuilder::gather,         &IndexBuilder::sort<&IndexBuilder::m_verticals>,
    &IndexBuilder::placeVerticals, &IndexBuilder::sort<&IndexBuilder::m_rows>,
    &IndexBuilder::placeRows,      &IndexBuilder::sort<&IndexBuilder::m_starts>,
    &IndexBuilder::placeStarts,    &IndexBuilder::sort<&IndexBuilder::m_ends>,
    &IndexBuilder::placeEnds,      &IndexBuilder::sort<&IndexBuilder::m_tops>,
    &IndexBuilder::reachFirst,     &IndexBuilder::sort<&IndexBuilder::m_bottoms>,
    &IndexBuilder::reachEnd,
};

IndexBuilder::IndexBuilder(State& state)
    : m_state(state)
    , m_isCompacting(state.segments.size() > 2 * state.liveCount() + 1024)
    , m_horizontalSegments(state.horizontalCount)
    , m_placeOf(state.horizontalCount)
    , m_verticals(sortItems(state.verticalCount))
    , m_rows(sortItems(state.horizontalCount))
    , m_starts(sortItems(state.horizontalCount))
    , m_ends(sortItems(state.horizontalCount))
    , m_tops(sortItems(state.verticalCount))
    , m_bottoms(sortItems(state.verticalCount))
{
    const std::size_t verticals = state.verticalCount, horizontals = state.horizontalCount;
    m_tables.index.verticals = ScratchArray<CrossingIndex::Vertical>(verticals);
    m_tables.index.horizontals = ScratchArray<CrossingIndex::Horizontal>(horizontals);
    m_tables.index.segmentsBySerial = ScratchArray<std::uint32_t>(horizontals);
    m_tables.index.places =
        ScratchArray<std::uint32_t>(m_isCompacting ? state.liveCount() : state.segments.size());
    m_tables.index.met.ends = ScratchArray<std::uint32_t>(verticals);
    m_tables.index.meeting.ends = ScratchArray<std::uint32_t>(horizontals);
    m_tables.starts = ScratchArray<SweepTables::Event>(horizontals);
    m_tables.ends = ScratchArray<SweepTables::Event>(horizontals);
    m_tables.reaches = ScratchArray<SweepTables::Reach>(verticals);
    m_tables.order.reserve(state.order.size());
    m_tables.orderSeen = state.order.size();
    if (m_isCompacting)
        m_tables.segmentBlocks.resize(state.nodes.size());
}

bool IndexBuilder::run(Host::TaskBudget& budget)
{
    for (; m_phase < kPhases.size(); ++m_phase) {
        if (!(this->*kPhases[m_phase])(budget))
            return false;
        m_cursor = 0;
        m_row = 0;
    }
    return true;
}

bool IndexBuilder::gather(Host::TaskBudget& budget)
{
    return slicedByWork(m_cursor, m_tables.orderSeen, budget, [this](std::size_t i) {
        const State::Ranked ranked = m_state.order[i];
        gather(ranked);
        return m_state.nodes[ranked.slot].segments.count;
    });
}

void IndexBuilder::gather(const State::Ranked& ranked)
{
    const CrossingNode& node = m_state.nodes[ranked.slot];
    if (node.sortRank == ranked.rank || node.rank == ranked.rank)
        m_tables.order.push_back(ranked);
    if (node.sortRank != ranked.rank)
        return;
    const auto first = static_cast<std::uint32_t>(m_tables.compacted.size());
    for (std::uint32_t i = 0; i < node.segments.count; ++i)
        gatherPiece(keep(node.segments.first + i));
    if (m_isCompacting)
        m_tables.segmentBlocks[ranked.slot] = {first, node.segments.count};
}

void IndexBuilder::gatherPiece(std::uint32_t id)
{
    const PathSegment& piece = segment(id);
    if (!piece.isHorizontal()) {
        m_verticals.items()[m_verticalCount++] = {sortKey(piece.p1.x), id};
        return;
    }
    const auto number = static_cast<std::uint32_t>(m_horizontalCount++);
    m_horizontalSegments[number] = id;
    m_rows.items()[number] = {sortKey(piece.p1.y), number};
    m_starts.items()[number] = {sortKey(piece.p1.x), number};
    m_ends.items()[number] = {sortKey(piece.p2.x), number};
}

std::uint32_t IndexBuilder::keep(std::uint32_t id)
{
    if (!m_isCompacting)
        return id;
    m_tables.compacted.push_back(m_state.segments[id]);
    return static_cast<std::uint32_t>(m_tables.compacted.size() - 1);
}

bool IndexBuilder::placeVerticals(Host::TaskBudget& budget)
{
    const auto& sorted = m_verticals.items();
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            prefetch(&segment(sorted[std::min(i + kAhead, to - 1)].value));
            placeVertical(i, sorted[i].value);
        }
    });
}

void IndexBuilder::placeVertical(std::size_t place, std::uint32_t id)
{
    const PathSegment& v = segment(id);
    const auto number = static_cast<std::uint32_t>(place);
    m_tables.index.verticals[place] = {v.p1.x, v.p1.y, v.p2.y, id};
    m_tables.index.places[id] = number;
    m_tops.items()[place] = {sortKey(v.p1.y), number};
    m_bottoms.items()[place] = {sortKey(v.p2.y), number};
}

bool IndexBuilder::placeRows(Host::TaskBudget& budget)
{
    const auto& sorted = m_rows.items();
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            const std::size_t later = sorted[std::min(i + kAhead, to - 1)].value;
            prefetch(&segment(m_horizontalSegments[later]));
            placeRow(i, sorted[i].value);
        }
    });
}

void IndexBuilder::placeRow(std::size_t place, std::uint32_t number)
{
    const std::uint32_t id = m_horizontalSegments[number];
    const PathSegment& h = segment(id);
    m_tables.index.horizontals[place] = {h.p1.y, h.p1.x, h.p2.x, id, 0};
    m_tables.index.places[id] = static_cast<std::uint32_t>(place);
    m_tables.index.meeting.ends[place] = 0;
    m_placeOf[number] = static_cast<std::uint32_t>(place);
}

bool IndexBuilder::placeStarts(Host::TaskBudget& budget)
{
    const auto& sorted = m_starts.items();
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            const std::uint32_t row = m_placeOf[sorted[i].value];
            m_tables.starts[i] = {numberOfKey(sorted[i].key), row};
            m_tables.index.horizontals[row].serial = static_cast<std::uint32_t>(i);
            m_tables.index.segmentsBySerial[i] = m_horizontalSegments[sorted[i].value];
        }
    });
}

bool IndexBuilder::placeEnds(Host::TaskBudget& budget)
{
    const auto& sorted = m_ends.items();
    return sliced(m_cursor, sorted.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i)
            m_tables.ends[i] = {numberOfKey(sorted[i].key), m_placeOf[sorted[i].value]};
    });
}

bool IndexBuilder::reachFirst(Host::TaskBudget& budget)
{
    const auto &tops = m_tops.items(), &rows = m_rows.items();
    return sliced(m_cursor, tops.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            while (m_row < rows.size() && rows[m_row].key <= tops[i].key)
                ++m_row;
            m_tables.reaches[tops[i].value].first = static_cast<std::uint32_t>(m_row);
        }
    });
}

bool IndexBuilder::reachEnd(Host::TaskBudget& budget)
{
    const auto &bottoms = m_bottoms.items(), &rows = m_rows.items();
    return sliced(m_cursor, bottoms.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i) {
            while (m_row < rows.size() && rows[m_row].key < bottoms[i].key)
                ++m_row;
            m_tables.reaches[bottoms[i].value].end = static_cast<std::uint32_t>(m_row);
        }
    });
}

bool IndexBuilder::freeSome()
{
    for (SlicedSort* const sort :
         {&m_verticals, &m_rows, &m_starts, &m_ends, &m_tops, &m_bottoms}) {
        if (sort->items().size() > 0) {
            sort->items().reset();
            return true;
        }
    }
    m_horizontalSegments.reset();
    m_placeOf.reset();
    return false;
}

bool SweepTables::freeSome()
{
    const auto isFreed = [](auto&... arrays) {
        return ((arrays.size() > 0 && (arrays.reset(), true)) || ...);
    };
    return index.meeting.values.freeSome() || index.met.values.freeSome() || compacted.freeSome() ||
           isFreed(starts, ends, reaches, index.verticals, index.horizontals, index.places,
                   index.segmentsBySerial, index.met.ends, index.meeting.ends);
}

} // namespace Tova2
