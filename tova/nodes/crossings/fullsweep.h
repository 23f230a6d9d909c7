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
    };
    /// By their places in the new index.
    struct Found {
        std::uint32_t vertical;
        std::uint32_t row;
    };
    struct Ending {
        double right;
        std::uint32_t place;
    };
    using Phase = bool (FullSweep::*)(Host::TaskBudget&);
    static const std::array<Phase, 16> kPhases;

    bool gather(Host::TaskBudget& budget);
    void gather(const State::Ranked& ranked);
    std::uint32_t keep(std::uint32_t segment);
    bool sortVerticals(Host::TaskBudget& budget) { return m_verticals->run(budget); }
    bool sortRows(Host::TaskBudget& budget) { return m_rows->run(budget); }
    bool sortStarts(Host::TaskBudget& budget) { return m_starts->run(budget); }
    bool sortEnds(Host::TaskBudget& budget) { return m_ends->run(budget); }
    bool placeVerticals(Host::TaskBudget& budget);
    bool placeRows(Host::TaskBudget& budget);
    void placeRow(std::size_t place, std::uint32_t number);
    bool placeStarts(Host::TaskBudget& budget);
    bool placeEnds(Host::TaskBudget& budget);
    bool sweep(Host::TaskBudget& budget);
    void advanceTo(double x);
    void meet(std::uint32_t vertical);
    std::size_t firstAbove(double y) const;
    std::size_t firstFrom(double y, std::size_t place) const;
    void sortMet();
    void emit(const Found& found);
    bool lay(Host::TaskBudget& budget);
    bool scatter(Host::TaskBudget& budget);
    void prefetchTargets(const Found& found);
    void assign(const Found& found);
    bool markAffected(Host::TaskBudget& budget);
    bool commit(Host::TaskBudget& budget);
    bool clean(Host::TaskBudget& budget);
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
    /// Rows that a vertical meets, serial in the upper half and place in the lower, so that they
    /// sort as they became active.
    std::vector<std::uint64_t> m_met;
    std::vector<double> m_ys;     ///< by place
    std::vector<double> m_someYs; ///< each `kYStep`-th of them: a search stays in the cache

    ChunkedVector<Found> m_found;
    std::vector<TableBlock> m_pairBlocks; ///< by node
    ChunkedVector<CrossingPair> m_pairs;
};

} // namespace Tova2
