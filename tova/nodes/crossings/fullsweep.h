#pragma once

#include "nodes/crossings/activeset.h"
#include "nodes/crossings/indexbuilder.h"

#include <array>
#include <cstddef>

namespace Tova2 {

/// Finds all crossings of all pieces, in new tables that replace the old ones when they are whole.
class FullSweep {
public:
    using State = PathIntersectionsWorker::State;

    explicit FullSweep(State& state);

    /// True when the tables are replaced.
    bool run(Host::TaskBudget& budget);

private:
    using Phase = bool (FullSweep::*)(Host::TaskBudget&);
    static const std::array<Phase, 9> kPhases;

    bool build(Host::TaskBudget& budget) { return m_builder.run(budget); }
    bool sweep(Host::TaskBudget& budget);
    std::size_t advanceTo(double x);
    std::size_t meet(std::size_t vertical);
    bool lay(Host::TaskBudget& budget);
    bool turn(Host::TaskBudget& budget);
    bool commit(Host::TaskBudget& budget);
    bool renumber(Host::TaskBudget& budget);
    bool markAffected(Host::TaskBudget& budget);
    bool clean(Host::TaskBudget& budget);
    bool discard(Host::TaskBudget& budget);

    State& m_state;
    IndexBuilder m_builder;
    SweepTables& m_tables;
    CrossingIndex& m_index;
    std::size_t m_phase = 0;
    std::size_t m_cursor = 0;
    ActiveSet m_active; ///< places of horizontals
    std::size_t m_startCursor = 0;
    std::size_t m_endCursor = 0;
    ChunkedVector<CrossingPair> m_oldPairs;
};

} // namespace Tova2
