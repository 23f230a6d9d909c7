#pragma once

#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/nodepairs.h"

#include "host/task.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Tova2 {

/// Brings the tables up to date after few nodes have changed, by comparing their pieces with all
/// others: by scans of the index of the last whole pass, and of what is too new to be in it.
class IncrementalSweep {
public:
    using State = PathIntersectionsWorker::State;

    explicit IncrementalSweep(State& state);

    /// Whether so little has changed that this takes less time than a whole pass.
    static bool isWorthwhile(State& state);

    /// True when the tables are up to date; until then they are untouched.
    bool run(Host::TaskBudget& budget);

private:
    struct Added {
        std::uint32_t node;
        CrossingPair pair;
    };
    struct Rebuilt {
        std::uint32_t node;
        std::size_t oldCount;
        std::vector<CrossingPair> pairs;
    };

    void meetAll(const PathSegment& own, std::uint32_t id);
    void meetVerticals(const PathSegment& own, std::uint32_t id);
    void meetHorizontals(const PathSegment& own, std::uint32_t id);
    void meetLoose(const PathSegment& own, std::uint32_t id);
    void add(const CrossingPair& pair);
    void prepareRebuild();
    void noteNode(std::uint32_t node);
    void rebuild(std::uint32_t node);
    bool isObsolete(const CrossingPair& pair) const;
    void commit();

    State& m_state;
    NodePairs m_old;
    std::vector<std::uint32_t> m_segments; ///< of changed nodes
    std::vector<Added> m_added;
    std::vector<std::uint32_t> m_nodes; ///< whose crossings are different
    std::vector<Rebuilt> m_rebuilt;
    std::size_t m_segmentCursor = 0;
    std::size_t m_nodeCursor = 0;
    bool m_isPrepared = false;
};

} // namespace Tova2
