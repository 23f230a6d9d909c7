#include "scene/scenequeries.h"

#include "nodes/nodeimpl.h"
#include "nodes/values.h"
#include "scene/sceneprivate.h"

#include "vetra/qt.h"

#include <cmath>

namespace Tova2::SceneQueries {

namespace {

constexpr auto kUnhittable = DisplayList::Hidden | DisplayList::Transparent;

struct Hit {
    NodeImpl* node;
    Box box;
    bool isSpecial;
};
using Hits = boost::container::small_vector<Hit, 8>;

/// From the top down.
Hits hitsIn(ScenePrivate& scene, const Box& area)
{
    const DisplayList& list = scene.displayList();
    DisplayList::Slots slots;
    list.candidates(area, kUnhittable, slots);
    Hits hits;
    hits.reserve(slots.size());
    for (auto slot = slots.rbegin(); slot != slots.rend(); ++slot)
        hits.push_back(
            {list.node(*slot), list.box(*slot), (list.flags(*slot) & DisplayList::Special) != 0});
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
        return true;
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
    const DisplayList& list = scene.displayList();
    std::vector<NodeImpl*> nodes;
    nodes.reserve(list.size());
    for (std::size_t slot = list.size(); slot-- > 0;) {
        if (NodeImpl* const node = list.node(slot))
            nodes.push_back(node);
    }
    return nodes;
}

NodeImpl* topmostAt(ScenePrivate& scene, const QPointF& point, const QTransform& view)
{
    if (!isFinite(point))
        return nullptr;
    const QPointF device = view.map(point);
    for (const Hit& hit : hitsIn(scene, Box::of(QRectF(point, point)))) {
        if (isStillHere(scene, *hit.node) && isHit(hit, point, device, view))
            return hit.node;
    }
    return nullptr;
}

std::vector<NodeImpl*> at(ScenePrivate& scene, const QPointF& point)
{
    std::vector<NodeImpl*> nodes;
    if (!isFinite(point))
        return nodes;
    for (const Hit& hit : hitsIn(scene, Box::of(QRectF(point, point)))) {
        if (isStillHere(scene, *hit.node) && isHit(hit, point, point, {}))
            nodes.push_back(hit.node);
    }
    return nodes;
}

std::vector<NodeImpl*> intersecting(ScenePrivate& scene, const Bounds& area)
{
    const QRectF rect = Vetra::toQt(area.boundingRect());
    std::vector<NodeImpl*> nodes;
    if (!isFinite(rect.topLeft()) || !isFinite(rect.bottomRight()))
        return nodes;
    for (const Hit& hit : hitsIn(scene, Box::of(rect))) {
        if (isStillHere(scene, *hit.node) && intersects(hit, area))
            nodes.push_back(hit.node);
    }
    return nodes;
}

std::vector<NodeImpl*> within(ScenePrivate& scene, const QRectF& rect)
{
    std::vector<NodeImpl*> nodes;
    if (!isFinite(rect.topLeft()) || !isFinite(rect.bottomRight()))
        return nodes;
    const Box area = Box::of(rect);
    for (const Hit& hit : hitsIn(scene, area)) {
        const Box box = std::isfinite(hit.box.left)
                            ? hit.box
                            : boxAtUnitScale(*hit.node, hit.node->nodeToDevice({}));
        if (area.contains(box))
            nodes.push_back(hit.node);
    }
    return nodes;
}

} // namespace Tova2::SceneQueries
