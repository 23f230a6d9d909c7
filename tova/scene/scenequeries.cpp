#include "scene/scenequeries.h"

#include "nodes/nodeimpl.h"
#include "nodes/values.h"
#include "scene/sceneprivate.h"

#include "vetra/qt.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2::SceneQueries {

namespace {

constexpr auto kUnhittable = DisplayList::Hidden | DisplayList::Transparent;

struct Hit {
    NodeImpl* node;
    Box box;
    bool isSpecial;
};
using Hits = boost::container::small_vector<Hit, 8>;

/// Nodes whose functors say that they may be hit in `area`, wherever their own bounds are.
std::vector<NodeImpl*> hitElsewhere(ScenePrivate& scene, const Box& area, const QTransform& view)
{
    std::vector<NodeImpl*> nodes;
    if (scene.nodesWithHitTester().empty())
        return nodes;
    const Box target = Box::of(view.mapRect(area.rect()));
    const auto asked = std::vector<NodeImpl*>(scene.nodesWithHitTester().begin(),
                                              scene.nodesWithHitTester().end());
    for (NodeImpl* const node : asked) {
        const QRectF bounds = scene.has(*node) ? node->customHitBounds() : QRectF();
        if (!bounds.isEmpty() && Box::of(node->nodeToDevice(view).mapRect(bounds)).touches(target))
            nodes.push_back(node);
    }
    return nodes;
}

/// From the top down.
Hits hitsIn(ScenePrivate& scene, const Box& area, const QTransform& view)
{
    const auto elsewhere = hitElsewhere(scene, area, view);
    const DisplayList& list = scene.displayList();
    const EntryBlocks& entries = list.entries();
    DisplayList::Slots slots;
    list.candidates(area, kUnhittable, slots);
    for (NodeImpl* const node : elsewhere) {
        const auto slot = node->sceneRecord().slot;
        if (entries.holds(*node) && !(entries.flags(slot) & kUnhittable))
            slots.push_back(slot);
    }
    if (!elsewhere.empty()) {
        const auto ranks = entries.ranks();
        std::sort(slots.begin(), slots.end(), [&](auto a, auto b) {
            return std::pair(ranks[a / EntryBlocks::kBlock], a) <
                   std::pair(ranks[b / EntryBlocks::kBlock], b);
        });
        slots.erase(std::unique(slots.begin(), slots.end()), slots.end());
    }
    Hits hits;
    hits.reserve(slots.size());
    for (auto slot = slots.rbegin(); slot != slots.rend(); ++slot)
        hits.push_back({entries.node(*slot), entries.box(*slot),
                        (entries.flags(*slot) & DisplayList::Special) != 0});
    return hits;
}

bool contains(NodeImpl& node, const QPointF& device, const QTransform& toDevice,
              bool (NodeImpl::*test)(const QPointF&))
{
    if (toDevice.type() <= QTransform::TxTranslate)
        return (node.*test)(device - QPointF(toDevice.dx(), toDevice.dy()));
    bool isInvertible = false;
    const QTransform toLocal = toDevice.inverted(&isInvertible);
    return isInvertible && (node.*test)(toLocal.map(device));
}

bool containsInClips(NodeImpl& node, const QPointF& device, const QTransform& view)
{
    for (NodeImpl* at = node.parentNode(); at; at = at->parentNode()) {
        if (!at->isClipping())
            continue;
        bool isInvertible = false;
        const QTransform toLocal = at->nodeToDevice(view).inverted(&isInvertible);
        if (!isInvertible || !at->outlineContains(toLocal.map(device)))
            return false;
    }
    return true;
}

/// `device` is the point that `view` maps the scene point to.
bool isHit(const Hit& hit, const QPointF& scenePoint, const QPointF& device, const QTransform& view)
{
    NodeImpl& node = *hit.node;
    if (hit.isSpecial)
        return containsInClips(node, device, view) &&
               contains(node, device, node.nodeToDevice(view), &NodeImpl::hitContains);
    if (!node.parentNode() && node.isTranslatedOnly())
        return node.hitContains(scenePoint - node.pos());
    return contains(node, scenePoint, node.sceneTransform(), &NodeImpl::hitContains);
}

bool isStillHere(const ScenePrivate& scene, const NodeImpl& node)
{
    return scene.has(node) && node.isVisibleToScene();
}

/// The part of `area` that lies inside what the node's ancestors clip to.
Bounds clippedTo(const NodeImpl& node, Bounds area)
{
    for (const NodeImpl* at = node.parentNode(); at; at = at->parentNode()) {
        if (at->isClipping())
            area = area.intersectedWith(
                at->outline().transformed(Vetra::fromQt(at->sceneTransform())));
    }
    return area;
}

bool isInside(const Box& box, const Bounds& area)
{
    return area.isOnlyRect() && Box::of(Vetra::toQt(area.boundingRect())).contains(box);
}

bool intersects(const Hit& hit, const Bounds& area)
{
    NodeImpl& node = *hit.node;
    const bool hasCustomTest = node.hasCustomHitTest();
    if (!hit.isSpecial && !hasCustomTest && isInside(hit.box, area))
        return node.hasOutline();
    const Bounds visible = hit.isSpecial ? clippedTo(node, area) : area;
    // A region without area still touches what lies on it; one that a clip has emptied does not.
    if (visible.isEmpty() && !area.isEmpty())
        return false;
    const QTransform toScene = hit.isSpecial ? node.nodeToDevice({}) : node.sceneTransform();
    bool isInvertible = false;
    const QTransform toLocal = toScene.inverted(&isInvertible);
    if (!isInvertible)
        return false;
    if (visible.isOnlyRect() && toLocal.type() <= QTransform::TxScale)
        return node.hitIntersects(toLocal.mapRect(Vetra::toQt(visible.boundingRect())));
    return node.hitIntersects(visible.transformed(Vetra::fromQt(toLocal)));
}

} // namespace

std::vector<NodeImpl*> all(ScenePrivate& scene)
{
    const EntryBlocks& entries = scene.displayList().entries();
    const auto blocks = entries.order();
    std::vector<NodeImpl*> nodes;
    nodes.reserve(entries.size());
    for (auto block = blocks.rbegin(); block != blocks.rend(); ++block) {
        for (auto slot = entries.end(*block); slot-- > EntryBlocks::first(*block);) {
            if (NodeImpl* const node = entries.node(slot))
                nodes.push_back(node);
        }
    }
    return nodes;
}

NodeImpl* topmostAt(ScenePrivate& scene, const QPointF& point, const QTransform& view)
{
    if (!isFinite(point))
        return nullptr;
    const QPointF device = view.map(point);
    for (const Hit& hit : hitsIn(scene, Box::of(QRectF(point, point)), view)) {
        // Its own hit tester may take it out.
        if (isStillHere(scene, *hit.node) && isHit(hit, point, device, view) &&
            scene.has(*hit.node))
            return hit.node;
    }
    return nullptr;
}

namespace {

/// The nodes that pass the test, which may run hosts' code, and are still there when all have been
/// tested.
template <class Test>
std::vector<NodeImpl*> matching(ScenePrivate& scene, const Box& area, Test test)
{
    const auto edits = scene.editCounter();
    std::vector<NodeImpl*> nodes;
    for (const Hit& hit : hitsIn(scene, area, {})) {
        if (isStillHere(scene, *hit.node) && test(hit))
            nodes.push_back(hit.node);
    }
    if (scene.editCounter() != edits)
        std::erase_if(nodes, [&](const NodeImpl* node) { return !scene.has(*node); });
    return nodes;
}

bool isUsable(const QRectF& rect)
{
    return isFinite(rect.topLeft()) && isFinite(rect.bottomRight());
}

} // namespace

std::vector<NodeImpl*> at(ScenePrivate& scene, const QPointF& point)
{
    if (!isFinite(point))
        return {};
    return matching(scene, Box::of(QRectF(point, point)),
                    [&](const Hit& hit) { return isHit(hit, point, point, {}); });
}

std::vector<NodeImpl*> intersecting(ScenePrivate& scene, const Bounds& area)
{
    const QRectF rect = Vetra::toQt(area.boundingRect());
    if (!isUsable(rect))
        return {};
    return matching(scene, Box::of(rect), [&](const Hit& hit) { return intersects(hit, area); });
}

std::vector<NodeImpl*> within(ScenePrivate& scene, const QRectF& rect)
{
    if (!isUsable(rect))
        return {};
    const Box area = Box::of(rect);
    return matching(scene, area, [&](const Hit& hit) {
        const Box box = std::isfinite(hit.box.left) ? hit.box : scene.boxOf(*hit.node);
        return !box.isNowhere() && area.contains(box);
    });
}

} // namespace Tova2::SceneQueries
