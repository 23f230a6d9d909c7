#include "tova/nodes/node.h"

#include "nodes/deferrederror.h"
#include "nodes/nodekind.h"
#include "nodes/scenelink.h"

#include <algorithm>

namespace Tova2 {

namespace {

HeldNodes elementsOf(const std::vector<Node>& nodes)
{
    HeldNodes elements;
    elements.reserve(nodes.size());
    for (const Node& node : nodes)
        elements.emplace_back(implBehind(node));
    return elements;
}

/// Each scene's at once.
void toEdge(HeldNodes nodes, double direction)
{
    DeferredError error;
    std::erase_if(nodes, [](const auto& node) { return !node->sceneLink(); });
    while (!nodes.empty()) {
        SceneLink& scene = *nodes.front()->sceneLink();
        const auto others =
            std::stable_partition(nodes.begin(), nodes.end(),
                                  [&](const auto& node) { return node->sceneLink() == &scene; });
        const HeldNodes here(nodes.begin(), others);
        nodes.erase(nodes.begin(), others);
        error.run([&] { scene.toEdge(here, direction); });
        // What a tracker takes out meanwhile stays where it is.
        std::erase_if(nodes, [](const auto& node) { return !node->sceneLink(); });
    }
    error.rethrow();
}

/// Nothing between a node and itself, or between scenes. Only those that are not beyond the
/// reference already, if so asked.
void placeNextTo(HeldNodes nodes, const Node& node, double direction, bool isOnlyEnsured = false)
{
    if (nodes.empty())
        return;
    const Vetra::Holder<NodeImpl> reference(implBehind(node));
    SceneLink* const scene = reference->sceneLink();
    std::erase_if(nodes, [&](const auto& placed) {
        const double ahead = (placed->zValue() - reference->zValue()) * direction;
        return placed == reference || placed->sceneLink() != scene || (isOnlyEnsured && ahead > 0);
    });
    if (scene && !nodes.empty())
        scene->placeNextTo(nodes, *reference, direction);
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
    toEdge({getValidImpl()}, +1);
}

void Node::toTop(const std::vector<Node>& nodes)
{
    toEdge(elementsOf(nodes), +1);
}

void Node::toBottom()
{
    toEdge({getValidImpl()}, -1);
}

void Node::toBottom(const std::vector<Node>& nodes)
{
    toEdge(elementsOf(nodes), -1);
}

void Node::placeAbove(const Node& reference)
{
    placeNextTo({getValidImpl()}, reference, +1);
}

void Node::placeAbove(const std::vector<Node>& nodes, const Node& reference)
{
    placeNextTo(elementsOf(nodes), reference, +1);
}

void Node::placeBelow(const Node& reference)
{
    placeNextTo({getValidImpl()}, reference, -1);
}

void Node::placeBelow(const std::vector<Node>& nodes, const Node& reference)
{
    placeNextTo(elementsOf(nodes), reference, -1);
}

void Node::ensureAbove(const Node& reference)
{
    placeNextTo({getValidImpl()}, reference, +1, true);
}

void Node::ensureAbove(const std::vector<Node>& nodes, const Node& reference)
{
    placeNextTo(elementsOf(nodes), reference, +1, true);
}

void Node::ensureBelow(const Node& reference)
{
    placeNextTo({getValidImpl()}, reference, -1, true);
}

void Node::ensureBelow(const std::vector<Node>& nodes, const Node& reference)
{
    placeNextTo(elementsOf(nodes), reference, -1, true);
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
