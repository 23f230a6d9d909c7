// The order of a display list: who goes in where, after edits in the middle of it.

#include "nodes/nodeimpl.h"
#include "scene/displaylist.h"
#include "scene/stackingorder.h"

#include "tova/nodes/geometry/limits.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Tova2 {

namespace {

// Beside the slots of nodes that have entries: the place of a parked one among the parked.
constexpr std::uint32_t kParked = 0x80000000;

bool isListed(const NodeImpl& node)
{
    return node.sceneRecord().slot < kParked;
}

int depthOf(const NodeImpl& node)
{
    int depth = 0;
    for (const NodeImpl* at = node.parentNode(); at; at = at->parentNode())
        ++depth;
    return depth;
}

const NodeImpl& topLevelOf(const NodeImpl& node)
{
    const NodeImpl* top = &node;
    while (const NodeImpl* const parent = top->parentNode())
        top = parent;
    return *top;
}

/// Where the toolkit, which sorts them, has the child among its siblings.
int indexAmong(const QList<QGraphicsItem*>& siblings, const NodeImpl& node)
{
    const auto rank = [](const QGraphicsItem* item) {
        return std::pair(!(item->flags() & QGraphicsItem::ItemStacksBehindParent), item->zValue());
    };
    const auto equal = std::equal_range(
        siblings.begin(), siblings.end(), &node,
        [&](const QGraphicsItem* a, const QGraphicsItem* b) { return rank(a) < rank(b); });
    const QGraphicsItem* const item = &node;
    return static_cast<int>(std::find(equal.first, equal.second, item) - siblings.begin());
}

/// The first with an entry among children that come from the outside inwards, up to those on the
/// other side of their parent.
template <class Iterator>
NodeImpl* outermost(Iterator child, Iterator end, bool isBehind)
{
    for (; child != end && nodeOf(*child)->stacksBehindParent() == isBehind; ++child) {
        if (isListed(*nodeOf(*child)))
            return nodeOf(*child);
    }
    return nullptr;
}

/// Of the entries of a node and all below it.
std::uint32_t lowestOf(NodeImpl& root)
{
    NodeImpl* lowest = &root;
    for (NodeImpl* next = lowest; next; lowest = next ? next : lowest) {
        const auto children = lowest->childItems();
        next = outermost(children.begin(), children.end(), true);
    }
    return lowest->sceneRecord().slot;
}

std::uint32_t highestOf(NodeImpl& root)
{
    NodeImpl* highest = &root;
    for (NodeImpl* next = highest; next; highest = next ? next : highest) {
        const auto children = highest->childItems();
        next = outermost(children.rbegin(), children.rend(), false);
    }
    return highest->sceneRecord().slot;
}

} // namespace

bool stacksBelow(const NodeImpl& topLevel, const NodeImpl& other)
{
    const auto rank = [](const NodeImpl& node) {
        return std::tuple(!node.stacksBehindParent(), node.zValue(),
                          node.sceneRecord().topLevelIndex);
    };
    return rank(topLevel) < rank(other);
}

/// What is known of a node that has none now, from before.
EntryBlocks::Entry DisplayList::entryOf(NodeImpl& node, int depth,
                                        const std::vector<EntryBlocks::Entry>& parked)
{
    const Slot old = node.sceneRecord().slot;
    EntryBlocks::Entry entry{&node, Box::nowhere(), Stale};
    if (old != SceneRecord::kNone)
        entry = parked[old & ~kParked];
    const bool isTooDeep = depth >= Limits::paintedNodeDepth;
    m_hasTooDeep |= isTooDeep;
    entry.flags = static_cast<std::uint8_t>((entry.flags & ~TooDeep) | (isTooDeep ? TooDeep : 0));
    return entry;
}

void DisplayList::addOnTop(NodeImpl& root)
{
    if (m_isOrderStale)
        return; // the rebuild finds it
    // One that stacks behind its parent goes below all others even without one.
    if (root.stacksBehindParent())
        return markMoved(root);
    visitInStackingOrder(
        root, 0, [this](NodeImpl& node, int depth) { m_entries.append(entryOf(node, depth, {})); });
}

void DisplayList::strikeOut(NodeImpl& node) noexcept
{
    SceneRecord& record = node.sceneRecord();
    if (record.slot != SceneRecord::kNone)
        m_entries.strikeOut(record.slot, Hidden | Uncounted);
    if (record.isMoved) {
        constexpr std::size_t kQuicklySearched = 1000;
        if (m_moved.size() > kQuicklySearched)
            markOrderStale();
        else
            std::replace(m_moved.begin(), m_moved.end(), &node, static_cast<NodeImpl*>(nullptr));
    }
    const auto topLevelIndex = record.topLevelIndex;
    record = SceneRecord();
    record.topLevelIndex = topLevelIndex;
}

void DisplayList::markOrderStale() noexcept
{
    m_isOrderStale = true;
    for (NodeImpl* const node : std::exchange(m_moved, {})) {
        if (node)
            node->sceneRecord().isMoved = false;
    }
}

void DisplayList::markMoved(NodeImpl& node)
{
    if (m_isOrderStale || node.sceneRecord().isMoved)
        return;
    node.sceneRecord().isMoved = true;
    m_moved.push_back(&node);
    constexpr std::size_t kFew = 64, kFraction = 16;
    if (m_moved.size() > kFew + m_entries.size() / kFraction)
        markOrderStale();
}

void DisplayList::rebuild(std::span<NodeImpl* const> topLevels)
{
    std::vector<EntryBlocks::Entry> old;
    old.reserve(m_entries.size());
    for (const auto block : m_entries.order()) {
        for (Slot slot = EntryBlocks::first(block); slot < m_entries.end(block); ++slot) {
            if (NodeImpl* const node = m_entries.node(slot)) {
                node->sceneRecord().slot = kParked | static_cast<Slot>(old.size());
                old.push_back(m_entries.entry(slot));
            }
        }
    }
    m_entries.clear();
    m_hasTooDeep = false;
    for (NodeImpl* const top : topLevels) {
        visitInStackingOrder(*top, 0, [&](NodeImpl& node, int depth) {
            m_entries.append(entryOf(node, depth, old));
        });
    }
    m_isOrderStale = false;
}

void DisplayList::restack(std::span<NodeImpl* const> topLevels)
{
    if (m_isOrderStale)
        rebuild(topLevels);
    else if (!m_moved.empty())
        restackMoved();
    m_entries.tidy();
}

void DisplayList::restackMoved()
{
    auto moved = std::exchange(m_moved, {});
    std::erase(moved, nullptr);
    for (NodeImpl* const node : moved) {
        node->sceneRecord().isMoved = false;
        park(*node);
    }
    m_entries.tidy();
    // From the bottom up, so that each finds the sibling that it lies on.
    std::stable_sort(moved.begin(), moved.end(), [](const NodeImpl* a, const NodeImpl* b) {
        return a->zValue() < b->zValue();
    });
    for (NodeImpl* const node : moved) {
        NodeImpl* const parent = node->parentNode();
        // Under one that has moved itself, it comes along with that.
        if (!isListed(*node) && (!parent || isListed(*parent)))
            insertSubtree(*node);
    }
    m_parked.clear();
}

void DisplayList::park(NodeImpl& root)
{
    for (NodeImpl* const node : subtreeOf(root)) {
        SceneRecord& record = node->sceneRecord();
        if (!isListed(*node))
            continue;
        m_parked.push_back(m_entries.entry(record.slot));
        m_entries.strikeOut(record.slot, Hidden | Uncounted);
        record.slot = kParked | static_cast<Slot>(m_parked.size() - 1);
    }
}

void DisplayList::insertSubtree(NodeImpl& root)
{
    constexpr Slot kNone = SceneRecord::kNone;
    Slot below = kNone, above = kNone;
    if (NodeImpl* const parent = root.parentNode()) {
        const auto siblings = parent->childItems();
        int i = indexAmong(siblings, root) - 1;
        while (i >= 0 && !isListed(*nodeOf(siblings[i])))
            --i;
        NodeImpl* const lower = i < 0 ? nullptr : nodeOf(siblings[i]);
        if (lower && lower->stacksBehindParent() == root.stacksBehindParent())
            below = highestOf(*lower);
        else if (root.stacksBehindParent())
            above = lowestOf(*parent);
        else
            below = parent->sceneRecord().slot;
    } else {
        below = placeAmongTopLevels(root);
        if (below == kNone && m_entries.size() > 0)
            above = EntryBlocks::first(m_entries.order().front());
    }
    visitInStackingOrder(root, depthOf(root), [&](NodeImpl& node, int depth) {
        const auto entry = entryOf(node, depth, m_parked);
        if (below != kNone)
            below = m_entries.insertAfter(below, entry);
        else
            below = above != kNone ? m_entries.insertBefore(above, entry) : m_entries.append(entry);
    });
}

/// The entry that a top-level node comes to lie on; none when it is the lowest.
DisplayList::Slot DisplayList::placeAmongTopLevels(const NodeImpl& root) const
{
    const auto isBelow = [&](Slot slot) {
        return stacksBelow(topLevelOf(*m_entries.node(slot)), root);
    };
    const auto order = m_entries.order();
    const auto block = std::partition_point(order.begin(), order.end(), [&](std::uint32_t at) {
        return isBelow(EntryBlocks::first(at));
    });
    if (block == order.begin())
        return SceneRecord::kNone;
    Slot lower = EntryBlocks::first(block[-1]), upper = m_entries.end(block[-1]);
    while (upper - lower > 1) {
        const Slot middle = lower + (upper - lower) / 2;
        (isBelow(middle) ? lower : upper) = middle;
    }
    return lower;
}

} // namespace Tova2
