#pragma once

#include "nodes/crossings/activeset.h"
#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/slicedsort.h"

#include "host/task.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

namespace Tova2 {

/// Finds all crossings of all pieces, in new tables that replace the old ones when they are whole.
///
/// A line moves over the verticals by x. The horizontals that it meets are active; they are kept as
/// bits at their places in the order by y, so that those between the ends of a vertical are
/// neighbours, whatever else is active.
class FullSweep {
public:
    using State = PathIntersectionsWorker::State;

    explicit FullSweep(State& state);

    /// True when the tables are replaced.
    bool run(Host::TaskBudget& budget);

private:
    /// By the order of their left ends, which is the order in which they become active.
    struct Starting {
        double left;
        std::uint32_t place; ///< by y
        std::uint32_t segment;
        std::uint32_t node;
    };
    struct Ending {
        double right;
        std::uint32_t place;
    };
    using Phase = bool (FullSweep::*)(Host::TaskBudget&);
    static const std::array<Phase, 14> kPhases;

    bool gather(Host::TaskBudget& budget);
    void gather(const State::Ranked& ranked);
    std::uint32_t keep(std::uint32_t segment);
    bool sortVerticals(Host::TaskBudget& budget) { return m_verticals->run(budget); }
    bool sortRows(Host::TaskBudget& budget) { return m_rows->run(budget); }
    bool sortStarts(Host::TaskBudget& budget) { return m_starts->run(budget); }
    bool sortEnds(Host::TaskBudget& budget) { return m_ends->run(budget); }
    bool placeVerticals(Host::TaskBudget& budget);
    bool placeRows(Host::TaskBudget& budget);
    bool placeStarts(Host::TaskBudget& budget);
    bool placeEnds(Host::TaskBudget& budget);
    bool sweep(Host::TaskBudget& budget);
    void advanceTo(double x);
    void meet(const SegmentIndex::Vertical& vertical);
    void sortBySerial(std::vector<std::uint32_t>& serials);
    void emit(const SegmentIndex::Vertical& vertical, std::uint32_t node, std::uint32_t serial);
    bool lay(Host::TaskBudget& budget);
    bool scatter(Host::TaskBudget& budget);
    bool commit(Host::TaskBudget& budget);
    bool discard(Host::TaskBudget& budget);
    PathSegment& segment(std::uint32_t i)
    {
        return m_isCompacting ? m_compacted[i] : m_state.segments[i];
    }

    State& m_state;
    std::size_t m_phase = 0;
    std::size_t m_cursor = 0;

    bool m_isCompacting;
    ChunkedVector<PathSegment> m_compacted;
    std::vector<TableBlock> m_segmentBlocks; ///< by node, while compacting
    std::size_t m_verticalCount = 0;
    std::size_t m_horizontalCount = 0;
    ScratchArray<std::uint32_t> m_horizontalSegments; ///< in the order they were gathered
    ScratchArray<std::uint32_t> m_placeOf;            ///< of each of them by y
    std::optional<SlicedSort> m_verticals, m_rows, m_starts, m_ends;

    SegmentIndex m_index;
    ScratchArray<std::uint32_t> m_serialAt; ///< by place: index in m_starting
    ScratchArray<Starting> m_starting;
    ScratchArray<Ending> m_ending;
    std::size_t m_startCursor = 0;
    std::size_t m_endCursor = 0;
    std::unique_ptr<ActiveSet> m_active; ///< places
    std::unique_ptr<ActiveSet> m_sorter; ///< serials
    std::vector<std::uint32_t> m_serials;

    ChunkedVector<CrossingPair> m_found;
    std::vector<TableBlock> m_pairBlocks; ///< by node
    ChunkedVector<CrossingPair> m_pairs;
};

} // namespace Tova2
