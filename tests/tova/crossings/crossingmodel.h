#pragma once

#include "nodes/crossings/crossinginterfaces.h"

#include "tova/nodes/rectnode.h"

#include <gmock/gmock.h>

#include <functional>
#include <ostream>
#include <unordered_map>
#include <vector>

namespace Tova2 {

inline void PrintTo(const PathIntersection& one, std::ostream* out)
{
    *out << "(" << one.x << ", " << one.y << ") role " << one.role << " clearance "
         << testing::PrintToString(one.clearance);
}

/// A path of a test: a node for its identity, and what the worker is told of it.
struct ModelPath {
    RectNode node;
    WeakRef ref;
    CrossingPath path;
    bool isVisible = true;
    bool isIn = true; ///< has been reported and not removed
    int rank = 0;
};

/// Paths in the order they were made; finds crossings by comparing each piece with each.
class CrossingModel final : public CrossingSource {
public:
    using Points = std::vector<Vetra::GLPoint<double>>;

    std::size_t add(Points points, double z = 0, double parentZ = 0);
    ModelPath& path(std::size_t i) { return m_paths[i]; }
    std::size_t size() const { return m_paths.size(); }
    void takeOut(std::size_t i) { m_paths[i].isIn = false; }
    void putBack(std::size_t i);
    /// The node dies.
    void kill(std::size_t i);

    bool describe(const WeakRef& node, CrossingPath& path) override;

    std::vector<PathIntersection> crossingsOf(std::size_t i) const;

private:
    std::vector<ModelPath> m_paths;
    std::unordered_map<WeakRef, std::size_t> m_byRef;
    int m_lastRank = 0;
};

/// What has been published, as nodes would have it.
class PublishedCrossings final : public CrossingResults {
public:
    void crossingsFound(PathIntersectionsUpdate&& update) override;
    const std::vector<PathIntersection>& of(const WeakRef& node) { return m_byNode[node]; }

    int updateCount = 0;
    std::size_t lastSize = 0;
    std::function<void()> onFound;

private:
    std::unordered_map<WeakRef, std::vector<PathIntersection>> m_byNode;
};

} // namespace Tova2
