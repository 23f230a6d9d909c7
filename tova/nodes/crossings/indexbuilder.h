#pragma once

#include "nodes/crossings/crossingindex.h"
#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/slicedsort.h"

#include "host/task.h"

#include <array>
#include <cstddef>
#include <vector>

namespace Tova2 {

/// All that a sweep needs to know of the pieces.
struct SweepTables {
    /// An end of a horizontal piece.
    struct Event {
        double x;
        std::uint32_t row; ///< place among the horizontals
    };
    /// The horizontals whose y lies between the ends of a vertical, whatever their x.
    struct Reach {
        std::uint32_t first, end;
    };

    CrossingIndex index;         ///< its lists are for the sweep to fill
    ScratchArray<Event> starts;  ///< by x, those at equal x in order of rank
    ScratchArray<Event> ends;    ///< by x
    ScratchArray<Reach> reaches; ///< by vertical

    ChunkedVector<PathSegment> compacted;  ///< those that are not stale, while compacting
    std::vector<TableBlock> segmentBlocks; ///< by node, while compacting
    std::vector<PathIntersectionsWorker::State::Ranked> order; ///< without void items
    std::size_t orderSeen = 0; ///< how many of the state's were looked at for it

    /// Gives back a part of the memory; true while there is more.
    bool freeSome();
};

/// Gathers the pieces of all nodes, and sorts them for a sweep.
class IndexBuilder {
public:
    using State = PathIntersectionsWorker::State;

    explicit IndexBuilder(State& state);

    /// True when the tables are whole.
    bool run(Host::TaskBudget& budget);
    bool isCompacting() const { return m_isCompacting; }
    SweepTables& tables() { return m_tables; }
    /// Gives back a part of the memory that only the building took; true while there is more.
    bool freeSome();

private:
    using Phase = bool (IndexBuilder::*)(Host::TaskBudget&);
    static const std::array<Phase, 13> kPhases;

    bool gather(Host::TaskBudget& budget);
    void gather(const State::Ranked& ranked);
    void gatherPiece(std::uint32_t id);
    std::uint32_t keep(std::uint32_t id);
    bool placeVerticals(Host::TaskBudget& budget);
    void placeVertical(std::size_t place, std::uint32_t id);
    bool placeRows(Host::TaskBudget& budget);
    void placeRow(std::size_t place, std::uint32_t number);
    bool placeStarts(Host::TaskBudget& budget);
    bool placeEnds(Host::TaskBudget& budget);
    bool reachFirst(Host::TaskBudget& budget);
    bool reachEnd(Host::TaskBudget& budget);
    template <SlicedSort IndexBuilder::*kSort>
    bool sort(Host::TaskBudget& budget)
    {
        return (this->*kSort).run(budget);
    }
    const PathSegment& segment(std::uint32_t i) const
    {
        return m_isCompacting ? m_tables.compacted[i] : m_state.segments[i];
    }

    State& m_state;
    SweepTables m_tables;
    std::size_t m_phase = 0;
    std::size_t m_cursor = 0;
    bool m_isCompacting;
    std::size_t m_verticalCount = 0;
    std::size_t m_horizontalCount = 0;
    ScratchArray<std::uint32_t> m_horizontalSegments; ///< in the order they were gathered
    ScratchArray<std::uint32_t> m_placeOf;            ///< of each of them by y
    SlicedSort m_verticals, m_rows, m_starts, m_ends; ///< values: id of a segment, or number
    SlicedSort m_tops, m_bottoms;                     ///< values: places of verticals
    std::size_t m_row = 0;
};

} // namespace Tova2
