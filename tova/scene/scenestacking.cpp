#include "nodes/deferrederror.h"
#include "scene/sceneprivate.h"

#include <algorithm>
#include <cmath>

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
    return true;
}

void ScenePrivate::setZValue(NodeImpl& node, double z)
{
    if (std::isfinite(z) && storeZ(node, z))
        node.reportChange(ChangeLevel::Stacking);
}

// Widens the record by 1 at the top or the bottom; the scene is renumbered first where that would
// not be exact.
double ScenePrivate::nextZ(double direction)
{
    double& edge = direction > 0 ? m_highestZ : m_lowestZ;
    if (std::max(m_highestZ, -m_lowestZ) >= kExactLimit - 1)
        renumber();
    return edge += direction;
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

void ScenePrivate::stackOnTop(NodeImpl& node)
{
    storeZ(node, nextZ(+1));
    node.reportChange(ChangeLevel::Stacking);
}

void ScenePrivate::toTop(NodeImpl& node)
{
    if (node.zValue() != m_highestZ)
        stackOnTop(node);
}

void ScenePrivate::toBottom(NodeImpl& node)
{
    if (node.zValue() == m_lowestZ)
        return;
    storeZ(node, nextZ(-1));
    node.reportChange(ChangeLevel::Stacking);
}

void ScenePrivate::placeAbove(NodeImpl& node, const NodeImpl& reference)
{
    placeNextTo(node, reference, +1);
}

void ScenePrivate::placeBelow(NodeImpl& node, const NodeImpl& reference)
{
    placeNextTo(node, reference, -1);
}

// Makes room by moving all that lies beyond the reference, in the whole scene, away by 1.
void ScenePrivate::placeNextTo(NodeImpl& node, const NodeImpl& reference, double direction)
{
    nextZ(direction);
    const double base = reference.zValue();
    std::vector<Vetra::Holder<NodeImpl>> moved;
    for (NodeImpl* const top : topLevelNodes()) {
        for (NodeImpl* const other : subtreeOf(*top)) {
            const double z = other->zValue();
            if (other == &node || !(direction > 0 ? z > base : z < base))
                continue;
            static_cast<QGraphicsItem*>(other)->setZValue(z + direction);
            moved.emplace_back(other);
        }
    }
    storeZ(node, base + direction);
    DeferredError error;
    error.run([&] { node.reportChange(ChangeLevel::Stacking); });
    for (const auto& other : moved)
        error.run([&] { other->reportChange(ChangeLevel::Stacking); });
    error.rethrow();
}

} // namespace Tova2
