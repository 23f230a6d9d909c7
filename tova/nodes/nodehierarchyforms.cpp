#include "tova/nodes/node.h"

#include "nodes/nodeimpl.h"
#include "nodes/scenelink.h"

#include <algorithm>

namespace Tova2 {

namespace {

using Placement = void (SceneLink::*)(NodeImpl&, const NodeImpl&);

/// Nothing between a node and itself, or between scenes.
bool arePeers(const NodeImpl* node, const NodeImpl* reference)
{
    return node != reference && node->sceneLink() && node->sceneLink() == reference->sceneLink();
}

void place(NodeImpl* node, const NodeImpl* reference, Placement placement)
{
    if (arePeers(node, reference))
        (node->sceneLink()->*placement)(*node, *reference);
}

/// The nodes from the lowest z-value to the highest; those of equal value in the order given.
std::vector<Node> byZValue(const std::vector<Node>& nodes)
{
    std::vector<Node> sorted = nodes;
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const Node& a, const Node& b) { return a.getZValue() < b.getZValue(); });
    return sorted;
}

/// `step` on each node from the top down.
template <class Step>
void downwards(const std::vector<Node>& nodes, Step step)
{
    auto sorted = byZValue(nodes);
    std::for_each(sorted.rbegin(), sorted.rend(), step);
}

template <class Step>
void upwards(const std::vector<Node>& nodes, Step step)
{
    auto sorted = byZValue(nodes);
    std::for_each(sorted.begin(), sorted.end(), step);
}

} // namespace

void Node::setParent(const Node& parent)
{
    getValidImpl()->setParent(parent.isValid() ? parent.getValidImpl() : nullptr);
}

void Node::unparent()
{
    getValidImpl()->setParent(nullptr);
}

Node Node::getParent() const
{
    NodeImpl* const parent = getValidImpl()->parentNode();
    return parent ? Node(parent) : Node();
}

std::vector<Node> Node::getChildren() const
{
    const auto items = getValidImpl()->childItems();
    std::vector<Node> children;
    children.reserve(items.size());
    for (QGraphicsItem* const item : items)
        children.emplace_back(nodeOf(item));
    return children;
}

Node Node::getChildAt(int index) const
{
    const auto items = getValidImpl()->childItems();
    return index >= 0 && index < items.size() ? Node(nodeOf(items.at(index))) : Node();
}

Scene* Node::getScene() const
{
    SceneLink* const link = getValidImpl()->sceneLink();
    return link ? link->scene() : nullptr;
}

double Node::getZValue() const
{
    return getValidImpl()->zValue();
}

void Node::setZValue(double z)
{
    NodeImpl* const impl = getValidImpl();
    if (SceneLink* const scene = impl->sceneLink())
        scene->setZValue(*impl, z);
}

void Node::toTop()
{
    NodeImpl* const impl = getValidImpl();
    if (SceneLink* const scene = impl->sceneLink())
        scene->toTop(*impl);
}

void Node::toBottom()
{
    NodeImpl* const impl = getValidImpl();
    if (SceneLink* const scene = impl->sceneLink())
        scene->toBottom(*impl);
}

void Node::placeAbove(const Node& reference)
{
    place(getValidImpl(), reference.getValidImpl(), &SceneLink::placeAbove);
}

void Node::placeBelow(const Node& reference)
{
    place(getValidImpl(), reference.getValidImpl(), &SceneLink::placeBelow);
}

void Node::ensureAbove(const Node& reference)
{
    if (getZValue() <= reference.getZValue())
        placeAbove(reference);
}

void Node::ensureBelow(const Node& reference)
{
    if (getZValue() >= reference.getZValue())
        placeBelow(reference);
}

void Node::toTop(const std::vector<Node>& nodes)
{
    // A node that is at the top already would stay below those that follow it there.
    upwards(nodes, [](Node& node) { node.toTop(); });
}

void Node::toBottom(const std::vector<Node>& nodes)
{
    downwards(nodes, [](Node& node) { node.toBottom(); });
}

// Each goes right next to the reference, so the one to end up farthest away goes first.
void Node::placeAbove(const std::vector<Node>& nodes, const Node& reference)
{
    downwards(nodes, [reference](Node& node) { node.placeAbove(reference); });
}

void Node::placeBelow(const std::vector<Node>& nodes, const Node& reference)
{
    upwards(nodes, [reference](Node& node) { node.placeBelow(reference); });
}

void Node::ensureAbove(const std::vector<Node>& nodes, const Node& reference)
{
    downwards(nodes, [reference](Node& node) { node.ensureAbove(reference); });
}

void Node::ensureBelow(const std::vector<Node>& nodes, const Node& reference)
{
    upwards(nodes, [reference](Node& node) { node.ensureBelow(reference); });
}

void Node::setStacksBehindParent(bool behind)
{
    getValidImpl()->setStacksBehindParent(behind);
}

bool Node::isStacksBehindParent() const
{
    return getValidImpl()->stacksBehindParent();
}

void Node::setClipsChildren(bool clips)
{
    getValidImpl()->setClipsChildren(clips);
}

bool Node::isClipsChildren() const
{
    return getValidImpl()->clipsChildren();
}

} // namespace Tova2
