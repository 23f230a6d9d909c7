#pragma once

#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/nodepairs.h"
#include "nodes/crossings/slicedsort.h"

#include "host/task.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Tova2 {

/// Brings the tables up to date after few nodes have changed: finds what crosses their pieces, and
/// writes the lists of all nodes anew that this, or what they crossed before, concerns.
class IncrementalSweep {
public:
    using State = PathIntersectionsWorker::State;

    explicit IncrementalSweep(State& state);

    /// Whether so little has changed that this takes less time than a whole pass.
    static bool isWorthwhile(State& state);

    /// True when the tables are up to date; until the last phase no node's list is another.
    bool run(Host::TaskBudget& budget);

private:
    using Phase = bool (IncrementalSweep::*)(Host::TaskBudget&);
    static const std::array<Phase, 7> kPhases;

    struct Added {
        std::uint32_t node;
        CrossingPair pair;
    };
    struct Rebuilt {
        std::uint32_t node;
        TableBlock pairs;
        std::size_t oldCount;
    };

    bool meet(Host::TaskBudget& budget);
    bool meetVerticals(const PathSegment& own, std::uint32_t id, Host::TaskBudget& budget);
    bool meetHorizontals(const PathSegment& own, std::uint32_t id, Host::TaskBudget& budget);
    void meetLoose(const PathSegment& own, std::uint32_t id);
    void add(const CrossingPair& pair);
    bool sortAdded(Host::TaskBudget& budget);
    std::uint64_t keyOf(const Added& added, int place) const;
    bool gatherOld(Host::TaskBudget& budget);
    bool noteOld(Host::TaskBudget& budget);
    bool noteAdded(Host::TaskBudget& budget);
    void note(std::uint32_t node);
    bool rebuild(Host::TaskBudget& budget);
    void begin(std::uint32_t node);
    bool merge(Host::TaskBudget& budget);
    void takeNext();
    const CrossingPair& nextAdded() const { return m_added[m_order[m_addedCursor].value].pair; }
    bool isObsolete(const CrossingPair& pair) const;
    bool commit(Host::TaskBudget& budget);

    State& m_state;
    std::size_t m_phase = 0;
    std::size_t m_cursor = 0; ///< of the phase

    std::vector<std::uint32_t> m_segments; ///< of changed nodes
    std::size_t m_place = 0;               ///< in the index: up to it the piece at hand is compared
    ChunkedVector<Added> m_added;
    ScratchArray<SortItem> m_order; ///< of those
    std::optional<SlicedSort> m_sort;
    int m_keyPlace = 0;

    std::vector<std::uint32_t> m_nodes; ///< whose crossings are different
    std::vector<bool> m_isNoted;
    std::vector<Rebuilt> m_rebuilt; ///< up to the one at hand
    NodePairs m_old;                ///< what it had, or the changed nodes had
    bool m_isGathered = false;      ///< all that it had
    std::size_t m_oldCursor = 0;
    std::size_t m_addedCursor = 0, m_addedEnd = 0; ///< what is new to it
};

} // namespace Tova2
