#pragma once

#include "scene/box.h"
#include "scene/viewreach.h"

#include <QTransform>

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

class Effect;
class NodeImpl;
class PlacementCache;

/// What queries and paints must know of each node of a scene, packed in stacking order from the
/// bottom up. Edits only mark; `refresh` makes good before the next walk. Blocks of entries carry a
/// common box, so that a walk over a large scene passes by what lies elsewhere.
///
/// A node that leaves is struck out at once, so no entry ever names a node that is not in the
/// scene.
class DisplayList {
public:
    static constexpr std::size_t kBlock = 64; ///< slots

    enum Flag : std::uint8_t {
        Hidden = 1,  ///< itself or by an ancestor
        Special = 2, ///< opacity, a clip, or a size that depends on the view, also from an ancestor
        Transparent = 4, ///< cannot be seen, and so cannot be hit
        Uncounted = 8,   ///< no part of the scene's bounds
        TooDeep = 16,    ///< nested beyond what is painted
    };

    /// The subtree has just become the topmost of the scene.
    void addOnTop(NodeImpl& root);
    void strikeOut(NodeImpl& node) noexcept;
    void markOrderStale() noexcept { m_isOrderStale = true; }
    bool isOrderStale() const noexcept { return m_isOrderStale; }
    void markStale(NodeImpl& node);
    /// The node and all below it.
    void markSubtreeStale(NodeImpl& node);

    /// The top-level nodes from the bottom up; not looked at unless the order is stale.
    void refresh(std::span<NodeImpl* const> topLevels);

    // Valid after `refresh`.
    std::size_t size() const { return m_nodes.size(); }
    NodeImpl* node(std::size_t slot) const
    {
        return m_nodes[slot];
    } ///< null where one was struck out
    const Box& box(std::size_t slot) const { return m_boxes[slot]; }
    std::uint8_t flags(std::size_t slot) const { return m_flags[slot]; }
    const ViewReach& reach() const { return m_reach; }
    /// Boxes that all the nodes of `size() / kBlock` runs of slots lie in.
    std::span<const Box> blockBoxes() const { return m_blockBoxes; }
    bool hasTooDeep() const { return m_hasTooDeep; }

    /// The box last known of a node; nowhere when it was never computed or is stale.
    Box knownBox(const NodeImpl& node) const;
    /// Computes a node's box now, and remembers it if the node has an entry.
    Box computeBox(NodeImpl& node);

    /// Few of them, as under the pointer, take no memory of their own.
    using Slots = boost::container::small_vector<std::uint32_t, 32>;
    /// Slots, from the bottom up, of nodes that may reach into `area` and have none of the flags.
    void candidates(const Box& area, std::uint8_t without, Slots& slots) const;

private:
    struct Description {
        Box box;
        std::uint8_t flags = 0;
    };

    Description describe(const NodeImpl& node, PlacementCache& placements);
    bool includeTrace(const Effect& effect, double scale);
    void rebuild(std::span<NodeImpl* const> topLevels);
    std::uint32_t append(NodeImpl& node, bool isTooDeep);
    void place(NodeImpl& node, std::uint32_t slot, PlacementCache& placements);
    void refreshBlocks();
    void touchBlock(std::uint32_t slot);

    std::vector<Box> m_boxes;
    std::vector<NodeImpl*> m_nodes;
    std::vector<std::uint8_t> m_flags;
    std::vector<Box> m_blockBoxes;
    std::vector<std::uint8_t> m_isBlockStale;
    std::vector<std::uint32_t> m_staleSlots;
    std::vector<std::uint32_t> m_staleBlocks;
    ViewReach m_reach;
    std::size_t m_struckOut = 0;
    std::uint64_t m_marks = 0; ///< of entries as stale, so far
    bool m_isOrderStale = false;
    bool m_hasTooDeep = false;
};

/// The scene rectangle of what a node paints, effects included, as it is at a view scale of 1.
Box boxAtUnitScale(const NodeImpl& node, const QTransform& sceneTransform);

} // namespace Tova2
