#include "nodes/deferrederror.h"
#include "scene/sceneprivate.h"

#include <algorithm>
#include <cmath>
#include <tuple>
#include <unordered_set>

namespace Tova2 {

namespace {

// From here on not every whole number is a double, and "one more" would come to nothing.
constexpr double kExactLimit = 9007199254740992.0; // 2^53

} // namespace

bool ScenePrivate::storeZ(NodeImpl& node, double z)
{
    if (z == node.zValue())
        return false;
    m_lowestZ = std::min(m_lowestZ, z);
    m_highestZ = std::max(m_highestZ, z);
    static_cast<QGraphicsItem&>(node).setZValue(z);
    m_displayList.markMoved(node); // at once, as hosts may ask for the order before they are told
    return true;
}

void ScenePrivate::setZValue(NodeImpl& node, double z)
{
    if (std::isfinite(z) && storeZ(node, z))
        node.reportChange(ChangeLevel::Stacking);
}

// Widens the record at the top or the bottom, and gives its new edge; the scene is renumbered first
// where that would not be exact.
double ScenePrivate::widenZ(double by)
{
    double& edge = by > 0 ? m_highestZ : m_lowestZ;
    if (std::max(m_highestZ, -m_lowestZ) >= kExactLimit - std::abs(by))
        renumber();
    return edge += by;
}

// Equal values stay equal, and the order stays as it is.
void ScenePrivate::renumber()
{
    std::vector<NodeImpl*> nodes;
    for (NodeImpl* const top : topLevelNodes()) {
        const auto subtree = subtreeOf(*top);
        nodes.insert(nodes.end(), subtree.begin(), subtree.end());
    }
    std::stable_sort(nodes.begin(), nodes.end(), [](const NodeImpl* a, const NodeImpl* b) {
        return a->zValue() < b->zValue();
    });
    m_lowestZ = m_highestZ = 0;
    double last = 0;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const double z = nodes[i]->zValue();
        if (i > 0 && z != last)
            ++m_highestZ;
        last = z;
        static_cast<QGraphicsItem&>(*nodes[i]).setZValue(m_highestZ);
    }
}

// Where the sum is exact, the order stays as it is.
void ScenePrivate::shiftZ(NodeImpl& node, double by)
{
    const double before = node.zValue();
    static_cast<QGraphicsItem&>(node).setZValue(before + by);
    if (node.zValue() - by != before)
        m_displayList.markOrderStale();
}

void ScenePrivate::stackOnTop(NodeImpl& node)
{
    storeZ(node, widenZ(+1));
    node.reportChange(ChangeLevel::Stacking);
}

/// Each once; in the stacking order also where z-values are equal. Downwards for a direction
/// below 0.
HeldNodes ScenePrivate::inOrder(HeldNodes nodes, double direction)
{
    if (nodes.size() < 2)
        return nodes;
    if (!m_isAsking)
        restack();
    const EntryBlocks& entries = m_displayList.entries();
    const auto ranks = entries.ranks();
    const auto place = [&](const NodeImpl& node) {
        const auto slot = node.sceneRecord().slot;
        const auto rank = slot == SceneRecord::kNone ? slot : ranks[slot / EntryBlocks::kBlock];
        return std::tuple(node.zValue(), rank, slot);
    };
    std::sort(nodes.begin(), nodes.end(),
              [&](const auto& a, const auto& b) { return place(*a) < place(*b); });
    nodes.erase(std::unique(nodes.begin(), nodes.end()), nodes.end());
    if (direction < 0)
        std::reverse(nodes.begin(), nodes.end());
    return nodes;
}

namespace {

/// Once all have their values: a tracker may throw.
void report(const HeldNodes& nodes, ChangeLevel level, DeferredError& error)
{
    for (const auto& node : nodes)
        error.run([&] { node->reportChange(level); });
}

} // namespace

void ScenePrivate::toEdge(const HeldNodes& nodes, double direction)
{
    HeldNodes moved;
    for (const auto& node : inOrder(nodes, direction)) {
        if (node->zValue() != (direction > 0 ? m_highestZ : m_lowestZ)) {
            storeZ(*node, widenZ(direction));
            moved.push_back(node);
        }
    }
    DeferredError error;
    report(moved, ChangeLevel::Stacking, error);
    error.rethrow();
}

// Makes room by moving all that lies beyond the reference, in the whole scene, as far away as there
// are nodes to be placed. That leaves those in their order.
void ScenePrivate::placeNextTo(const HeldNodes& nodes, const NodeImpl& reference, double direction)
{
    const HeldNodes placed = inOrder(nodes, direction);
    const double room = direction * static_cast<double>(placed.size());
    widenZ(room);
    const double base = reference.zValue();
    std::unordered_set<const NodeImpl*> arePlaced;
    double z = base;
    for (const auto& node : placed) {
        storeZ(*node, z += direction);
        m_displayList.markMoved(*node); // others have moved, if not this
        arePlaced.insert(node.get());
    }
    HeldNodes beyond;
    for (NodeImpl* const top : topLevelNodes()) {
        for (NodeImpl* const other : subtreeOf(*top)) {
            if ((other->zValue() - base) * direction > 0 && !arePlaced.contains(other))
                beyond.emplace_back(other);
        }
    }
    for (const auto& node : beyond)
        shiftZ(*node, room);
    DeferredError error;
    report(placed, ChangeLevel::Stacking, error);
    report(beyond, ChangeLevel::Renumbered, error);
    error.rethrow();
}

} // namespace Tova2
