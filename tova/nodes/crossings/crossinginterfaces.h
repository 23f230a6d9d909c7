#pragma once

#include "nodes/crossings/pathintersection.h"

#include "host/task.h"
#include "vetra/glpoint.h"

#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

namespace Tova2 {

/// One path as it takes part in crossings.
struct CrossingPath {
    std::vector<Vetra::GLPoint<double>> points; ///< scene coordinates
    double parentZ = 0;                         ///< of the container it is in, else 0
    double z = 0;
};

/// Where the worker gets its paths from.
class CrossingSource {
public:
    virtual ~CrossingSource() = default;
    /// Fills `path`, which is reused from call to call. False for a node that takes no part now: a
    /// hidden one, or one that is no path.
    virtual bool describe(const WeakRef& node, CrossingPath& path) = 0;
};

/// New records of every node that is listed; those of others are as they were.
struct PathIntersectionsUpdate {
    struct Item {
        WeakRef node;
        std::vector<PathIntersection> crossings; ///< empty when it has none any more
        bool hasGone = false;                    ///< it is one of `gone`, or a record names one
        bool isTaken = false;
    };
    std::vector<Item> items;               ///< each node once
    std::vector<std::uint32_t> itemOfSlot; ///< the worker's: 1 + the place among the items, or 0
    /// Nodes that left while the records were made. Taking drops what concerns them: it would be
    /// long work to do that for all items at once.
    std::unordered_set<WeakRef> gone;

    /// What the item's node has now; nothing when it was taken before.
    std::optional<std::vector<PathIntersection>> take(Item& item) const;
};

/// Where the worker's results go.
class CrossingResults {
public:
    virtual ~CrossingResults() = default;
    /// May call back into the worker, or destroy it.
    virtual void crossingsFound(PathIntersectionsUpdate&& update) = 0;
    /// Called in slices after it until it returns true, and before the next update: what has to be
    /// done for each node of a large one needs more time than a slice has.
    virtual bool handOn(Host::TaskBudget& budget);
};

} // namespace Tova2
