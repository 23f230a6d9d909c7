#pragma once

#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/slicedsort.h"

#include "host/task.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace Tova2 {

/// Puts together the crossings of nodes, one node after another, each in order; those of a node
/// with itself twice in a row.
class NodePairs {
public:
    using State = PathIntersectionsWorker::State;

    explicit NodePairs(const State& state) : m_state(state) {}

    void clear() { m_pairs.clear(); }
    /// Appends those of the node. False while it has to be called again with the same node.
    bool add(std::uint32_t slot, Host::TaskBudget& budget);
    std::span<const CrossingPair> pairs() const { return m_pairs; }

private:
    using Phase = bool (NodePairs::*)(Host::TaskBudget&);

    void begin(std::uint32_t slot);
    bool copy(Host::TaskBudget& budget);
    bool gather(Host::TaskBudget& budget);
    std::size_t gatherPiece(std::uint32_t segment);
    bool sort(Host::TaskBudget& budget);
    bool convert(Host::TaskBudget& budget);

    const State& m_state;
    TableBlock m_block;      ///< of pairs, or of segments in the index
    Phase m_phase = nullptr; ///< null between two nodes
    std::size_t m_cursor = 0;
    std::size_t m_first = 0;           ///< place of the node's first pair
    std::vector<std::uint64_t> m_keys; ///< place of the vertical, then serial of the horizontal
    std::optional<SlicedSort> m_sort;  ///< of so many that it needs slices
    std::vector<CrossingPair> m_pairs;
};

} // namespace Tova2
