#include "scene/scenemodel.h"

#include <algorithm>
#include <optional>

namespace SceneModel {

void Model::note(int node, std::vector<int> Events::*list)
{
    const int scene = nodes[node].scene;
    if (scene < 0 || !scenes[scene].isTracked)
        return;
    for (int below : subtreeOf(node))
        (events[scene].*list).push_back(below);
}

void Model::changed(int node)
{
    const int scene = nodes[node].scene;
    if (scene >= 0 && scenes[scene].isTracked)
        events[scene].changed.insert(node);
}

void Model::stackOnTop(int node)
{
    Scene& scene = scenes[nodes[node].scene];
    nodes[node].z = ++scene.highest;
}

void Model::add(int scene, int node)
{
    Node& added = nodes[node];
    if (added.scene == scene)
        return;
    if (added.scene >= 0)
        remove(node);
    else if (!added.hasBeenInScene && !scenes[scene].creationColors.empty())
        added.hasStroke = false, added.color = scenes[scene].creationColors.back();
    added.parent = -1;
    added.arrival = ++m_arrivals;
    for (int below : subtreeOf(node)) {
        nodes[below].scene = scene;
        nodes[below].hasBeenInScene = true;
    }
    ++scenes[scene].counter;
    stackOnTop(node);
    // What came along with values of its own counts as handed out, or "to the top" would not be.
    for (int below : subtreeOf(node)) {
        scenes[scene].lowest = std::min(scenes[scene].lowest, nodes[below].z);
        scenes[scene].highest = std::max(scenes[scene].highest, nodes[below].z);
    }
    note(node, &Events::added);
}

void Model::remove(int node)
{
    const int scene = nodes[node].scene;
    if (scene < 0)
        return;
    note(node, &Events::removed);
    ++scenes[scene].counter;
    nodes[node].parent = -1;
    for (int below : subtreeOf(node))
        nodes[below].scene = -1;
}

std::string Model::refusal(int node, int parent) const
{
    if (node == parent)
        return "CannotParentToSelf";
    return parent >= 0 && isAncestor(node, parent) ? "CyclicalHierarchy" : "";
}

void Model::setParent(int node, int parent)
{
    if (nodes[node].parent == parent)
        return;
    bool isStacked = false;
    if (parent >= 0 && nodes[parent].scene != nodes[node].scene) {
        remove(node);
        if (nodes[parent].scene >= 0) {
            add(nodes[parent].scene, node);
            isStacked = true;
        }
    }
    nodes[node].parent = parent;
    nodes[node].arrival = ++m_arrivals;
    if (!isStacked && nodes[node].scene >= 0) {
        stackOnTop(node);
        changed(node);
    }
}

void Model::destroyScene(int scene)
{
    for (int top : topLevelsOf(scene))
        remove(top);
}

void Model::setZ(int node, double z)
{
    if (nodes[node].scene < 0 || z == nodes[node].z)
        return;
    Scene& scene = scenes[nodes[node].scene];
    scene.lowest = std::min(scene.lowest, z);
    scene.highest = std::max(scene.highest, z);
    nodes[node].z = z;
    changed(node);
}

void Model::toEdge(int node, double direction)
{
    if (nodes[node].scene < 0)
        return;
    Scene& scene = scenes[nodes[node].scene];
    double& edge = direction > 0 ? scene.highest : scene.lowest;
    if (nodes[node].z != edge)
        setZ(node, edge + direction);
}

void Model::placeNextTo(int node, int reference, double direction)
{
    const int scene = nodes[node].scene;
    if (scene < 0 || node == reference || nodes[reference].scene != scene)
        return;
    (direction > 0 ? scenes[scene].highest : scenes[scene].lowest) += direction;
    const double base = nodes[reference].z;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const int other = static_cast<int>(i);
        if (other == node || nodes[i].scene != scene || !((nodes[i].z - base) * direction > 0))
            continue;
        nodes[i].z += direction;
        changed(other);
    }
    setZ(node, base + direction);
    changed(node);
}

void Model::collect()
{
    for (bool isDone = false; !isDone;) {
        isDone = true;
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            Node& node = nodes[i];
            if (!node.isAlive || node.handles > 0 || node.parent >= 0 || node.scene >= 0)
                continue;
            node.isAlive = isDone = false;
            for (Node& child : nodes) {
                if (child.parent == static_cast<int>(i))
                    child.parent = -1;
            }
        }
    }
}

void Model::sortSiblings(std::vector<int>& siblings) const
{
    std::sort(siblings.begin(), siblings.end(), [this](int a, int b) {
        const Node &first = nodes[a], &second = nodes[b];
        if (first.isBehind != second.isBehind)
            return first.isBehind;
        return std::pair(first.z, first.arrival) < std::pair(second.z, second.arrival);
    });
}

std::vector<int> Model::childrenOf(int node) const
{
    std::vector<int> children;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].isAlive && nodes[i].parent == node)
            children.push_back(static_cast<int>(i));
    }
    sortSiblings(children);
    return children;
}

std::vector<int> Model::topLevelsOf(int scene) const
{
    std::vector<int> tops;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (nodes[i].scene == scene && nodes[i].parent < 0)
            tops.push_back(static_cast<int>(i));
    }
    sortSiblings(tops);
    return tops;
}

std::vector<int> Model::stackingOrder(int scene) const
{
    std::vector<int> order;
    const auto visit = [&](auto&& self, int node) -> void {
        const auto children = childrenOf(node);
        for (int child : children) {
            if (nodes[child].isBehind)
                self(self, child);
        }
        order.push_back(node);
        for (int child : children) {
            if (!nodes[child].isBehind)
                self(self, child);
        }
    };
    for (int top : topLevelsOf(scene))
        visit(visit, top);
    std::reverse(order.begin(), order.end());
    return order;
}

std::vector<int> Model::subtreeOf(int node) const
{
    std::vector<int> all{node};
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto children = childrenOf(all[i]);
        all.insert(all.end(), children.begin(), children.end());
    }
    return all;
}

bool Model::isAncestor(int node, int other) const
{
    for (int at = nodes[other].parent; at >= 0; at = nodes[at].parent) {
        if (at == node)
            return true;
    }
    return false;
}

Vetra::Transform Model::toScene(int node) const
{
    Vetra::Transform all;
    for (int at = node; at >= 0; at = nodes[at].parent)
        all = all * nodes[at].transform *
              Vetra::Transform::fromTranslate(nodes[at].position.x, nodes[at].position.y);
    return all;
}

Vetra::Transform Model::onScreen(int node) const
{
    int anchored = -1;
    for (int at = node; at >= 0; at = nodes[at].parent) {
        if (nodes[at].ignores)
            anchored = at;
    }
    if (anchored < 0)
        return toScene(node);
    Vetra::Transform all;
    for (int at = node; at != anchored; at = nodes[at].parent)
        all = all * nodes[at].transform *
              Vetra::Transform::fromTranslate(nodes[at].position.x, nodes[at].position.y);
    const Point origin = toScene(anchored).map({0, 0});
    return all * nodes[anchored].transform * Vetra::Transform::fromTranslate(origin.x, origin.y);
}

Rect Model::outline(int node) const
{
    const Rect& rect = nodes[node].rect;
    const double reach = nodes[node].hasStroke ? 1 : 0;
    return {rect.x - reach, rect.y - reach, rect.width + 2 * reach, rect.height + 2 * reach};
}

bool Model::isShown(int node) const
{
    for (int at = node; at >= 0; at = nodes[at].parent) {
        if (!nodes[at].isVisible)
            return false;
    }
    return true;
}

double Model::opacityOf(int node) const
{
    double opacity = 1;
    for (int at = node; at >= 0; at = nodes[at].parent)
        opacity *= nodes[at].opacity;
    return opacity;
}

bool Model::touches(int node, const Rect& area) const
{
    if (!isShown(node) || opacityOf(node) == 0)
        return false;
    Rect visible = area;
    for (int at = nodes[node].parent; at >= 0; at = nodes[at].parent) {
        if (!nodes[at].clips)
            continue;
        const Rect clip = onScreen(at).mapRect(outline(at));
        if (!clip.intersects(visible))
            return false;
        visible = visible.intersected(clip);
    }
    return onScreen(node).mapRect(outline(node)).intersects(visible);
}

bool Model::isHit(int node, const Point& point) const
{
    // Points of queries lie off all edges.
    return touches(node, {point.x, point.y, 0x1p-20, 0x1p-20});
}

bool Model::isWithin(int node, const Rect& area) const
{
    const Rect box = onScreen(node).mapRect(outline(node));
    return isShown(node) && opacityOf(node) > 0 && box.x >= area.x && box.y >= area.y &&
           box.x + box.width <= area.x + area.width && box.y + box.height <= area.y + area.height;
}

Rect Model::boundsOf(int scene) const
{
    std::optional<Rect> all;
    for (int node : stackingOrder(scene)) {
        if (!isShown(node))
            continue;
        const Rect box = onScreen(node).mapRect(outline(node));
        all = all ? all->united(box) : box;
    }
    return all.value_or(Rect{});
}

} // namespace SceneModel
