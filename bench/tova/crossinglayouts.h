#pragma once

#include "nodes/crossings/pathintersectionsworker.h"

#include "tova/nodes/rectnode.h"

#include <benchmark/benchmark.h>

#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Tova2 {

using Points = std::vector<Vetra::GLPoint<double>>;

enum CrossingLayout { Diagram, Comb };

/// The layout and the count of pieces that a benchmark has as arguments: see `crossingSizes`.
std::vector<Points> makePaths(const benchmark::State& state);
void crossingSizes(benchmark::internal::Benchmark* bench);

/// What a worker works for, without a scene.
class Paths final : public CrossingSource, public CrossingResults {
public:
    explicit Paths(std::vector<Points> paths) : m_paths(std::move(paths)), m_nodes(m_paths.size())
    {
        for (std::size_t i = 0; i < m_paths.size(); ++i) {
            m_nodes[i].setOpacity(0.5);
            m_refs.emplace_back(m_nodes[i]);
            m_byImpl.emplace(m_refs[i].getImpl(), i);
        }
    }

    bool describe(const WeakRef& node, CrossingPath& path) override
    {
        path.points = m_paths[m_next ? *m_next : m_byImpl.at(node.getImpl())];
        if (m_next)
            ++*m_next;
        return true;
    }
    void crossingsFound(PathIntersectionsUpdate&& update) override
    {
        m_old = std::exchange(m_last, std::move(update));
    }
    bool handOn(Host::TaskBudget& budget) override
    {
        while (!m_old.items.empty()) {
            m_old.items.pop_back();
            if (budget.isSpentAfterStep())
                return false;
        }
        return true;
    }
    /// The worker asks for all, in order: keeps the look-up of the bench out of the figures.
    void expectAll() { m_next = 0; }
    void expectAny() { m_next.reset(); }
    void reportAll(PathIntersectionsWorker& worker)
    {
        for (const WeakRef& ref : m_refs)
            worker.nodeUpdated(ref);
    }

    std::vector<Points> m_paths;
    std::vector<RectNode> m_nodes;
    std::vector<WeakRef> m_refs;
    PathIntersectionsUpdate m_last;

private:
    PathIntersectionsUpdate m_old;
    std::optional<std::size_t> m_next;
    std::unordered_map<NodeImpl*, std::size_t> m_byImpl;
};

} // namespace Tova2
