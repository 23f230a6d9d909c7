#pragma once

#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/transform.h"

#include <map>
#include <set>
#include <string>
#include <vector>

/// What nodes and scenes ought to be after any calls, in plain structs and by the simplest code:
/// the reference for random tests. Nodes are rectangles with a filled inside; transforms turn by
/// right angles only, so that everything stays exact. -1 stands for no parent and no scene.
namespace SceneModel {

using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;

struct Node {
    int parent = -1, scene = -1;
    int handles = 0;
    unsigned arrival = 0; ///< orders siblings of equal z
    double z = 0, opacity = 1;
    bool isAlive = true, hasBeenInScene = false;
    bool isVisible = true, isBehind = false, clips = false, ignores = false;
    Point position;
    Vetra::Transform transform; ///< without a translation
    Rect rect;
    unsigned color = 0xff000000; ///< of the fill
    bool hasStroke = false;      ///< black, 2 wide
    std::map<std::string, int> tags;
};

struct Scene {
    unsigned counter = 1;
    double lowest = 0, highest = 0;
    bool isTracked = false;
    std::vector<unsigned> creationColors;
};

/// What trackers have to be told, a scene each.
struct Events {
    std::vector<int> added, removed;
    std::set<int> changed;
    bool operator==(const Events&) const = default;
};

struct Model {
    std::vector<Node> nodes;
    std::vector<Scene> scenes;
    std::vector<Events> events; ///< since last cleared, for tracked scenes only

    // Each mirrors the call of its name and says in `events` what has to be told.
    void add(int scene, int node);
    void remove(int node);
    /// Empty when legal, else the key of the error.
    std::string refusal(int node, int parent) const;
    void setParent(int node, int parent);
    void destroyScene(int scene);
    void setZ(int node, double z);
    void toEdge(int node, double direction);
    void placeNextTo(int node, int reference, double direction);
    void changed(int node);
    /// Lets those die whom nobody holds any more.
    void collect();

    std::vector<int> childrenOf(int node) const; ///< bottom to top
    std::vector<int> topLevelsOf(int scene) const;
    std::vector<int> stackingOrder(int scene) const; ///< topmost first
    std::vector<int> subtreeOf(int node) const;      ///< parents first
    bool isAncestor(int node, int other) const;
    Vetra::Transform toScene(int node) const;  ///< as the tree says
    Vetra::Transform onScreen(int node) const; ///< in a view at scale 1
    Rect outline(int node) const;              ///< local, with the stroke
    bool isShown(int node) const;
    double opacityOf(int node) const;
    bool isHit(int node, const Point& point) const;
    bool touches(int node, const Rect& area) const;
    bool isWithin(int node, const Rect& area) const;
    Rect boundsOf(int scene) const;

private:
    void sortSiblings(std::vector<int>& siblings) const;
    void stackOnTop(int node);
    void note(int node, std::vector<int> Events::*list);
    unsigned m_arrivals = 0;
};

} // namespace SceneModel
