#pragma once

#include "nodes/nodeimpl.h"
#include "scene/box.h"
#include "scene/entryblocks.h"
#include "scene/viewreach.h"

#include <QTransform>

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

class Effect;
class InheritanceCache;

/// What queries and paints must know of each node of a scene, packed in stacking order from the
/// bottom up. Edits only mark; `refresh` makes good before the next walk, and costs what has
/// changed: a node that has another place in the order is taken out with all below it and put in
/// again, next to the one that it lies on now, which its siblings tell, or a binary search among
/// top-level nodes. Only when more than a fraction of all has moved is the list made anew. Blocks
/// of entries carry a common box, so that a walk over a large scene passes by what lies elsewhere.
/// Packed arrays as in a B-tree's leaves, without the tree.
///
/// A node that leaves is struck out at once, so no entry ever names a node that is not in the
/// scene.
class DisplayList {
public:
    using Slot = EntryBlocks::Slot;

    enum Flag : std::uint8_t {
        Hidden = 1,  ///< itself or by an ancestor
        Special = 2, ///< opacity, a clip, or a size that depends on the view, also from an ancestor
        Transparent = 4, ///< cannot be seen, and so cannot be hit
        Uncounted = 8,   ///< no part of the scene's bounds
        TooDeep = 16,    ///< nested beyond what is painted
        Stale = 32,      ///< its box and the other flags are to be found out again
    };

    /// `edits` moves on with every edit of the scene.
    explicit DisplayList(const std::uint64_t& edits) : m_edits(edits) {}

    /// The subtree has just become the topmost of the scene.
    void addOnTop(NodeImpl& root);
    void strikeOut(NodeImpl& node) noexcept;
    /// The node has another place in the order, and all below it with it.
    void markMoved(NodeImpl& node);
    void markStale(NodeImpl& node);
    /// The node and all below it.
    void markSubtreeStale(NodeImpl& node);

    /// Any of them may have another place.
    void markOrderStale() noexcept;
    /// Whether the order has to be made anew.
    bool isOrderStale() const noexcept { return m_isOrderStale; }
    /// Makes good the order alone, which asks no host. The top-level nodes from the bottom up are
    /// not looked at unless the order is stale.
    void restack(std::span<NodeImpl* const> topLevels);
    /// Once the order is good.
    void refreshBoxes();

    // Valid after `restack`.
    const EntryBlocks& entries() const { return m_entries; }
    // Valid after `refreshBoxes`.
    const ViewReach& reach() const { return m_reach; }
    bool hasTooDeep() const { return m_hasTooDeep; }

    /// The box last known of a node; nowhere when it was never computed or is stale.
    Box knownBox(const NodeImpl& node) const;
    /// Computes the common box of nodes that come as `subtreeOf` gives them, and remembers theirs
    /// if they have entries.
    Box computeBox(const Subtree& nodes);

    /// Few of them, as under the pointer, take no memory of their own.
    using Slots = boost::container::small_vector<Slot, 32>;
    /// Slots, from the bottom up, of nodes that may reach into `area` and have none of the flags.
    void candidates(const Box& area, std::uint8_t without, Slots& slots) const;

private:
    struct Description {
        Box box;
        std::uint8_t flags = 0;
    };

    Description describe(const NodeImpl& node, InheritanceCache& inheritance);
    bool includeTrace(const Effect& effect, double scale);
    Box place(NodeImpl& node, InheritanceCache& inheritance);

    void rebuild(std::span<NodeImpl* const> topLevels);
    void restackMoved();
    void park(NodeImpl& root);
    void insertSubtree(NodeImpl& root);
    EntryBlocks::Entry entryOf(NodeImpl& node, int depth,
                               const std::vector<EntryBlocks::Entry>& parked);
    Slot placeAmongTopLevels(const NodeImpl& root) const;

    const std::uint64_t& m_edits;
    EntryBlocks m_entries;
    std::vector<NodeImpl*> m_moved; ///< null where one has left since
    std::vector<EntryBlocks::Entry> m_parked;
    ViewReach m_reach;
    bool m_isOrderStale = false;
    bool m_hasTooDeep = false;
};

/// Whether the first of two top-level nodes of a scene lies below the other.
bool stacksBelow(const NodeImpl& topLevel, const NodeImpl& other);

/// The scene rectangle of what a node paints, effects included, as it is at a view scale of 1.
Box boxAtUnitScale(const NodeImpl& node, const QTransform& sceneTransform);

} // namespace Tova2
