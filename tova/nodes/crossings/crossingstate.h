#pragma once

#include "nodes/crossings/chunkedvector.h"
#include "nodes/crossings/crossingindex.h"
#include "nodes/crossings/crossinginterfaces.h"
#include "nodes/crossings/pathintersectionsworker.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <unordered_map>
#include <vector>

namespace Tova2 {

/// A run of elements in a table.
struct TableBlock {
    std::uint32_t first = 0;
    std::uint32_t count = 0;
};

/// What the worker knows of one node. Slots of nodes that are gone are used again.
struct CrossingNode {
    WeakRef node;
    std::uint32_t changeLevel = 0; ///< how many of its updates were accepted
    TableBlock segments;
    TableBlock indexed; ///< those that it had in the last whole pass
    TableBlock pairs;   ///< in the table of pairs, if they are from after the last whole pass
    std::uint32_t pairsPass = 0;
    std::uint64_t rank = 0;     ///< by when it was first reported
    std::uint64_t sortRank = 0; ///< the rank that its segments have in the tables
    bool isRegistered : 1 = false;
    bool isUpdateQueued : 1 = false;
    bool isRemovalQueued : 1 = false;
    bool isDirty : 1 = false;    ///< accepted, not yet swept
    bool isAffected : 1 = false; ///< swept, not yet published
    bool hasPublished : 1 = false;

    bool isFree() const { return node == WeakRef(); }
    bool isPending() const { return isUpdateQueued || isRemovalQueued; }
};

/// The worker's tables. Shared with the tasks, so that a task that outlives its session still has
/// them.
struct PathIntersectionsWorker::State {
    /// Null once the worker is gone: tasks then have nothing more to do.
    CrossingSource* source = nullptr;
    CrossingResults* results = nullptr;

    std::vector<CrossingNode> nodes;
    std::unordered_map<WeakRef, std::uint32_t> slots;
    std::vector<std::uint32_t> freeSlots;
    struct Ranked {
        std::uint64_t rank;
        std::uint32_t slot;
    };
    std::vector<Ranked> order; ///< by rank; items whose node has another `sortRank` are void
    std::uint64_t lastRank = 0;

    std::deque<std::uint32_t> updates; ///< nodes to ask for
    std::deque<std::uint32_t> removals;

    ChunkedVector<PathSegment> segments;
    std::size_t verticalCount = 0; ///< not stale
    std::size_t horizontalCount = 0;
    CrossingIndex index; ///< as of the last whole pass
    std::uint32_t wholePasses = 0;
    std::vector<std::uint32_t> loose; ///< taken since, so not in the index
    /// Of nodes whose crossings are others than in the index, node by node.
    ChunkedVector<CrossingPair> pairs;
    std::size_t pairCount = 0; ///< over all nodes; each crossing counts twice

    std::vector<std::uint32_t> dirty;    ///< nodes accepted and not yet swept
    std::vector<std::uint32_t> affected; ///< nodes to publish
    std::uint64_t deathsSeen = 0;        ///< of nodes, when the tables were last pruned
    bool isPublished = true;             ///< nothing was accepted since the last update
    std::size_t publishedCount = 0;
    std::uint32_t tableLimit = 0xfffffff0;

    std::size_t liveCount() const { return verticalCount + horizontalCount; }
    bool isIdle() const { return updates.empty() && removals.empty() && isPublished; }
    CrossingNode& nodeOf(const PathSegment& segment) { return nodes[segment.node]; }
    bool hasOwnPairs(const CrossingNode& node) const { return node.pairsPass == wholePasses; }
    /// Throws tova:nodes/list<T> too long where a table cannot take `size`.
    void checkSize(std::size_t size) const;

    std::uint32_t slotOf(const WeakRef& node); ///< made if need be
    void queueUpdate(const WeakRef& node);
    void queueRemoval(std::uint32_t slot);
    void setRank(std::uint32_t slot);
    void dropSegments(CrossingNode& node);
    void append(const PathSegment& segment);
    void markDirty(std::uint32_t slot);
    void markAffected(std::uint32_t slot);
    void freeIfGone(std::uint32_t slot);
    bool comesBefore(const CrossingPair& a, const CrossingPair& b) const;
};

} // namespace Tova2
