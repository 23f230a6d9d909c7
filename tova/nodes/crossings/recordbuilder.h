#pragma once

#include "nodes/crossings/nodepairs.h"

#include "host/task.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

/// Makes the records of all affected nodes.
///
/// What a record tells of the other path lies anywhere in memory. So the crossings of several nodes
/// are collected first, and what they need is fetched for many at a time.
class RecordBuilder {
public:
    using State = PathIntersectionsWorker::State;

    explicit RecordBuilder(State& state);

    /// True when all are made.
    bool run(Host::TaskBudget& budget);
    PathIntersectionsUpdate& update() { return m_update; }

private:
    struct Job {
        std::uint32_t slot;
        std::size_t end; ///< of its crossings among those that are collected
    };

    bool collect(Host::TaskBudget& budget);
    bool build(Host::TaskBudget& budget);
    void fetch(std::span<const CrossingPair> pairs) const;
    void addRecords(std::size_t from, std::size_t to);
    void addRecord(std::uint32_t slot, const CrossingPair& pair);
    PathIntersection record(const CrossingPair& pair, bool isVerticals, bool isSecondOfOwn);
    void endNodes(std::size_t pairCursor);
    void endNode(std::uint32_t slot);

    State& m_state;
    PathIntersectionsUpdate m_update;

    std::size_t m_nodeCursor = 0; ///< among the affected
    NodePairs m_pairs;            ///< of the nodes from there back to the first job's
    std::vector<Job> m_jobs;
    std::size_t m_jobCursor = 0;
    std::size_t m_pairCursor = 0;
    std::vector<PathIntersection> m_records; ///< of the node whose job is under way
    bool m_isSecond = false;                 ///< of two for one crossing of a path with itself
};

} // namespace Tova2
