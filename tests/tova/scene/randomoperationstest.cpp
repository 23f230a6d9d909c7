#include "scene/scenemodel.h"
#include "scene/sceneprivate.h"
#include "scene/stackingorder.h"

#include "host/diagnosticscounter.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"
#include "tova/scene/scenechangetracker.h"
#include "vetra/error.h"
#include "vetra/qt.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include <algorithm>
#include <array>
#include <functional>
#include <random>
#include <sstream>
#include <stdexcept>

namespace {

using namespace Tova2;
using SceneModel::Events;
using SceneModel::Point;
using SceneModel::Rect;

constexpr Rect kView{-40, -40, 120, 120};

struct ThrownByTracker : std::runtime_error {
    ThrownByTracker() : std::runtime_error("tracker") {}
};

struct Figures {
    std::int64_t inScene = read("Scene:Nodes in scene");
    std::int64_t raw = read("Node:Node raw instance count");
    std::int64_t pool = read("Node:Node pool instance count");

    static std::int64_t read(const char* name)
    {
        return Host::DiagnosticsCounter::counter(name).value();
    }
    bool operator==(const Figures&) const = default;
};

/// What a scene's list ought to hold, found by walking the tree.
std::vector<EntryBlocks::Entry> entriesAnew(ScenePrivate& scene)
{
    auto tops = scene.topLevelNodes();
    std::sort(tops.begin(), tops.end(), [](auto* a, auto* b) { return stacksBelow(*a, *b); });
    std::vector<EntryBlocks::Entry> entries;
    for (NodeImpl* const top : tops) {
        visitInStackingOrder(*top, 0, [&](NodeImpl& node, int) {
            const bool isShown = node.isVisibleToScene();
            const Box box = isShown ? boxAtUnitScale(node, node.sceneTransform()) : Box::nowhere();
            const std::uint8_t hidden = DisplayList::Hidden | DisplayList::Uncounted;
            entries.push_back({&node, box, isShown ? std::uint8_t{} : hidden});
        });
    }
    return entries;
}

/// What the list that edits have repaired holds otherwise; empty when it is the same.
std::string differenceFromAnew(ScenePrivate& scene)
{
    const EntryBlocks& list = scene.displayList().entries();
    const auto due = entriesAnew(scene);
    std::size_t i = 0;
    for (const auto block : list.order()) {
        for (auto slot = EntryBlocks::first(block); slot < list.end(block); ++slot, ++i) {
            if (i >= due.size() || list.node(slot) != due[i].node)
                return "order at " + std::to_string(i);
            if (due[i].node->sceneRecord().slot != slot)
                return "slot of " + std::to_string(i);
            const Box box = list.box(slot);
            const bool isSpecial = list.flags(slot) & DisplayList::Special;
            if (!(isSpecial && box == Box::everywhere()) && box != due[i].box)
                return "box of " + std::to_string(i);
            if (!isSpecial && list.flags(slot) != due[i].flags)
                return "flags of " + std::to_string(i);
            if (!box.isNowhere() && !list.commonBox(block).contains(box))
                return "common box of block " + std::to_string(block);
        }
    }
    return i == due.size() && list.size() == i ? "" : "size";
}

/// One random sequence of calls, each made on the real thing and on the model, then compared.
class Play {
public:
    explicit Play(unsigned seed) : m_random(seed) {}
    /// What was wrong first, with the calls that led there; empty when nothing was.
    std::string run(int steps);

private:
    class Tracker : public SceneChangeTracker {
    public:
        Tracker(Play& play, int scene) : m_play(play), m_scene(scene) {}
        void nodeAdded(Node node) override { tell(&Events::added, node); }
        void nodeRemoved(Node node) override { tell(&Events::removed, node); }
        void nodeChanged(Node node) override
        {
            m_play.m_told[m_scene].changed.insert(m_play.idOf(node));
            m_play.maybeThrow();
        }

    private:
        void tell(std::vector<int> Events::*list, const Node& node)
        {
            (m_play.m_told[m_scene].*list).push_back(m_play.idOf(node));
            m_play.maybeThrow();
        }
        Play& m_play;
        int m_scene;
    };

    /// Being watched makes a scene keep its books in another way.
    struct View final : RepaintSink {
        bool isWatching = false;
        void repaintRequested(const DirtyArea&) override {}
        void toggle(Scene& scene)
        {
            isWatching = !isWatching;
            if (isWatching)
                scene.d_func()->addRepaintSink(this);
            else
                scene.d_func()->removeRepaintSink(this);
        }
    };

    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    bool oneIn(int n) { return below(n) == 0; }
    int anyNode();
    int anyScene() { return below(static_cast<int>(m_scenes.size())); }
    int idOf(const Node& node) const
    {
        const auto found = m_ids.find(node.hashValue());
        return found == m_ids.end() ? -2 : found->second;
    }
    void maybeThrow()
    {
        if (!m_areTrackersThrowing || !oneIn(3))
            return;
        m_hasThrown = true;
        throw ThrownByTracker();
    }
    void expect(bool isRight, const std::string& what)
    {
        if (!isRight && m_failure.empty())
            m_failure = what;
    }
    /// Makes the call; what a tracker throws has to come out of it.
    template <class Call>
    void call(const std::string& name, Call&& made);

    void makeNode();
    void step();
    void changeHierarchy(int id);
    void changeStacking(int id);
    void changeNode(int id);
    void changeTags(int id);
    void changeScene(int scene);
    void changeHandles(int id);
    std::vector<int> bottomUp(const std::vector<int>& ids) const;
    void stackSeveral(int reference);

    void compare();
    void compareEvents();
    void compareNode(int id, const Node& node);
    void compareScene(int scene);
    void compareQueries(int scene);
    void comparePicture(int scene);
    std::vector<int> idsOf(const std::vector<Node>& nodes) const;
    std::map<int, RectNode> reachable();

    std::mt19937 m_random;
    SceneModel::Model m_model;
    std::vector<Vetra::Holder<Scene>> m_scenes;
    std::vector<std::unique_ptr<Tracker>> m_trackers;
    std::array<View, 3> m_views;
    std::vector<std::vector<RectNode>> m_handles;
    std::map<std::size_t, int> m_ids;
    std::vector<Events> m_told;
    bool m_areTrackersThrowing = false, m_hasThrown = false;
    std::ostringstream m_calls;
    std::string m_failure;
};

int Play::anyNode()
{
    std::vector<int> held;
    for (std::size_t i = 0; i < m_handles.size(); ++i) {
        if (!m_handles[i].empty())
            held.push_back(static_cast<int>(i));
    }
    return held.empty() ? -1 : held[static_cast<std::size_t>(below(static_cast<int>(held.size())))];
}

template <class Call>
void Play::call(const std::string& name, Call&& made)
{
    m_calls << "  " << name << '\n';
    m_hasThrown = false;
    bool hasArrived = false;
    try {
        made();
    } catch (const ThrownByTracker&) {
        hasArrived = true;
    } catch (const Vetra::Error& error) {
        expect(false, "refused: " + error.key());
    }
    expect(hasArrived == m_hasThrown, "a tracker's exception got lost");
}

void Play::makeNode()
{
    SceneModel::Node model;
    model.rect = {below(20) - 10.0, below(20) - 10.0, 2.0 + below(30), 2.0 + below(30)};
    model.handles = 1;
    RectNode node(model.rect);
    node.setDrawStyle({Stroke::NoStroke(), Fill(Vetra::Color::fromPacked(model.color))});
    m_calls << "  make " << m_handles.size() << '\n';
    m_ids[node.hashValue()] = static_cast<int>(m_handles.size());
    m_handles.push_back({node});
    m_model.nodes.push_back(model);
}

void Play::changeHierarchy(int id)
{
    const RectNode node = m_handles[id].front();
    const std::string name = std::to_string(id);
    int parent = oneIn(6) ? -1 : anyNode();
    if (oneIn(5)) { // what is not legal
        const auto subtree = m_model.subtreeOf(id);
        parent = subtree[static_cast<std::size_t>(below(static_cast<int>(subtree.size())))];
        if (m_handles[parent].empty())
            return;
    }
    const int scene = anyScene();
    switch (below(5)) {
    case 0:
        call("add " + name + " to scene " + std::to_string(scene),
             [&] { m_scenes[scene]->addNode(node); });
        return m_model.add(scene, id);
    case 1:
        call("remove " + name + " from scene " + std::to_string(scene),
             [&] { m_scenes[scene]->removeNode(node); });
        return m_model.nodes[id].scene == scene ? m_model.remove(id) : void();
    default:
        const std::string key = m_model.refusal(id, parent);
        std::string raised;
        call("setParent " + name + " under " + std::to_string(parent), [&] {
            try {
                RectNode(node).setParent(parent < 0 ? Node() : m_handles[parent].front());
            } catch (const Vetra::Error& error) {
                raised = error.key();
            }
        });
        expect(raised == key, "raised " + raised + " instead of " + key);
        return key.empty() ? m_model.setParent(id, parent) : void();
    }
}

void Play::changeStacking(int id)
{
    RectNode node = m_handles[id].front();
    const int reference = anyNode(), kind = below(9);
    const Node other = m_handles[reference].front();
    const double z = kind < 2 ? below(7) - 3.0 : std::numeric_limits<double>::quiet_NaN();
    const double nodeZ = m_model.nodes[id].z, otherZ = m_model.nodes[reference].z;
    const auto setZ = [&] { node.setZValue(z); };
    const auto expectZ = [&] { m_model.setZ(id, z); };
    const auto placeIf = [&](bool isOnWrongSide, double direction) {
        if (isOnWrongSide)
            m_model.placeNextTo(id, reference, direction);
    };
    const std::pair<std::function<void()>, std::function<void()>> forms[] = {
        {setZ, expectZ},
        {setZ, expectZ},
        {[&] { node.toTop(); }, [&] { m_model.toEdge(id, +1); }},
        {[&] { node.toBottom(); }, [&] { m_model.toEdge(id, -1); }},
        {[&] { node.placeAbove(other); }, [&] { placeIf(true, +1); }},
        {[&] { node.placeBelow(other); }, [&] { placeIf(true, -1); }},
        {[&] { node.ensureAbove(other); }, [&] { placeIf(nodeZ <= otherZ, +1); }},
        {[&] { node.ensureBelow(other); }, [&] { placeIf(nodeZ >= otherZ, -1); }},
        {setZ, [] {}}, // not a number
    };
    call("stack " + std::to_string(kind) + " " + std::to_string(id) + " by " +
             std::to_string(reference) + " z " + std::to_string(z),
         forms[kind].first);
    forms[kind].second();
}

/// Each once, as they lie; those in no scene do not matter.
std::vector<int> Play::bottomUp(const std::vector<int>& ids) const
{
    std::vector<int> sorted;
    for (std::size_t scene = 0; scene < m_scenes.size(); ++scene) {
        for (int id : m_model.stackingOrder(static_cast<int>(scene))) {
            if (std::find(ids.begin(), ids.end(), id) != ids.end())
                sorted.insert(sorted.begin(), id);
        }
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [&](int a, int b) { return m_model.nodes[a].z < m_model.nodes[b].z; });
    return sorted;
}

/// Is as if each were stacked by itself, the one that ends up outermost last at an edge and first
/// next to a reference.
void Play::stackSeveral(int reference)
{
    std::vector<int> ids;
    std::vector<Node> nodes;
    for (int i = below(5); i >= 0; --i) {
        ids.push_back(anyNode());
        nodes.push_back(m_handles[ids.back()].front());
    }
    const Node other = m_handles[reference].front();
    const int kind = below(6);
    using Form = void (*)(const std::vector<Node>&, const Node&);
    static const Form forms[] = {
        [](const std::vector<Node>& all, const Node&) { Node::toTop(all); },
        Node::placeAbove,
        Node::ensureAbove,
        [](const std::vector<Node>& all, const Node&) { Node::toBottom(all); },
        Node::placeBelow,
        Node::ensureBelow,
    };
    call("stack several, form " + std::to_string(kind), [&] { forms[kind](nodes, other); });
    auto order = bottomUp(ids);
    if ((kind % 3 == 0) != (kind < 3))
        std::reverse(order.begin(), order.end());
    const double direction = kind < 3 ? +1 : -1, limit = m_model.nodes[reference].z;
    for (int id : order) {
        if (kind % 3 == 0)
            m_model.toEdge(id, direction);
        else if (kind % 3 == 1 || (m_model.nodes[id].z - limit) * direction <= 0)
            m_model.placeNextTo(id, reference, direction);
    }
}

void Play::changeNode(int id)
{
    RectNode node = m_handles[id].front();
    SceneModel::Node& model = m_model.nodes[id];
    const SceneModel::Node before = model;
    const int kind = below(9), value = below(3);
    static const Vetra::Transform transforms[] = {
        {}, Vetra::Transform::fromScale(2, -1), Vetra::Transform::fromRotateDegrees(90)};
    const unsigned color = 0xff000000u | static_cast<unsigned>(below(1 << 24));
    const std::function<void()> changes[] = {
        [&] { node.setVisible(model.isVisible = value > 0); },
        [&] { node.setOpacity(model.opacity = value / 2.0); },
        [&] { node.setStacksBehindParent(model.isBehind = value > 1); },
        [&] { node.setClipsChildren(model.clips = value > 1); },
        [&] { node.setIgnoresTransformations(model.ignores = value > 1); },
        [&] { node.setPosition(model.position = Point(below(40) - 20.0, 3.0 * value)); },
        [&] { node.setTransform(model.transform = transforms[value]); },
        [&] {
            model.rect.width += value;
            node.setRect(model.rect);
        },
        [&] {
            model.color = color, model.hasStroke = value > 1;
            DrawStyle style = node.getDrawStyle();
            style.setFill(Fill(Vetra::Color::fromPacked(color)));
            style.setStroke(value > 1 ? Stroke(Vetra::Color::fromPacked(0xff000000), 2,
                                               StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                                               StrokeJoinStyle::MiterJoin, nullptr)
                                      : Stroke::NoStroke());
            node.setDrawStyle(style);
        },
    };
    call("change " + std::to_string(kind) + " of " + std::to_string(id) + " to " +
             std::to_string(value),
         changes[kind]);
    const bool isSame = before.isVisible == model.isVisible && before.opacity == model.opacity &&
                        before.isBehind == model.isBehind && before.clips == model.clips &&
                        before.ignores == model.ignores && before.position == model.position &&
                        before.transform == model.transform && before.rect == model.rect &&
                        before.color == model.color && before.hasStroke == model.hasStroke;
    if (!isSame)
        m_model.changed(id);
}

void Play::changeTags(int id)
{
    RectNode node = m_handles[id].front();
    auto& tags = m_model.nodes[id].tags;
    const std::string name(1, static_cast<char>('a' + below(3)));
    const int value = below(3);
    m_calls << "  tag " << name << " of " << id << '\n';
    switch (below(4)) {
    case 0:
        node.removeTag(Vetra::StringID(name));
        return void(tags.erase(name));
    case 1:
        if (!oneIn(3))
            return;
        node.removeAllTags();
        return tags.clear();
    default:
        if (value == 0)
            node.addTag(Vetra::StringID(name));
        else
            node.addTag(Vetra::StringID(name), Vetra::any(value));
        tags[name] = value;
    }
}

void Play::changeScene(int scene)
{
    auto& model = m_model.scenes[scene];
    const std::string name = " scene " + std::to_string(scene);
    const unsigned color = 0xff000000u | static_cast<unsigned>(below(1 << 24));
    switch (below(8)) {
    case 0:
        m_calls << "  watch" << name << '\n';
        m_views[scene].toggle(*m_scenes[scene]);
        return;
    case 1:
        m_calls << "  track" << name << '\n';
        m_scenes[scene]->beginChangeTracking(m_trackers[scene].get());
        model.isTracked = true;
        return;
    case 2:
        m_scenes[scene]->endChangeTracking();
        model.isTracked = false;
        return;
    case 3:
        m_scenes[scene]->pushCreationDrawStyle(
            {Stroke::NoStroke(), Fill(Vetra::Color::fromPacked(color))});
        return model.creationColors.push_back(color);
    case 4:
        if (model.creationColors.empty())
            return;
        m_scenes[scene]->popCreationDrawStyle();
        return model.creationColors.pop_back();
    case 5:
        if (!oneIn(4))
            return;
        call("destroy" + name, [&] { m_scenes[scene]->destroy(); });
        return m_model.destroyScene(scene);
    default:
        if (!oneIn(4))
            return;
        model.isTracked = false; // a scene's end is not told
        m_views[scene].isWatching = false;
        m_model.destroyScene(scene);
        call("drop" + name, [&] { m_scenes[scene] = Scene::createScene(); });
        model = {};
    }
}

void Play::changeHandles(int id)
{
    auto& handles = m_handles[id];
    const std::string name = std::to_string(id);
    switch (below(4)) {
    case 0:
        handles.push_back(RectNode(handles.back()));
        break;
    case 1:
        call("drop a handle of " + name, [&] { handles.pop_back(); });
        break;
    case 2:
        call("drop all handles of " + name, [&] { handles.clear(); });
        break;
    default: {
        const bool wasThrowing = std::exchange(m_areTrackersThrowing, false);
        call("removeAndRelease " + name, [&] { handles.back().removeAndRelease(); });
        m_areTrackersThrowing = wasThrowing;
        expect(!handles.back().isValid(), "not released");
        handles.pop_back();
        m_model.remove(id);
    }
    }
    m_model.nodes[id].handles = static_cast<int>(handles.size());
}

void Play::step()
{
    m_told.assign(m_scenes.size(), {});
    m_model.events.assign(m_scenes.size(), {});
    if (oneIn(10))
        m_areTrackersThrowing = !m_areTrackersThrowing;
    const int id = anyNode();
    if (id < 0 || (oneIn(8) && m_handles.size() < 14))
        return makeNode();
    const int kind = below(12);
    if (kind < 4)
        changeHierarchy(id);
    else if (kind < 6)
        changeStacking(id);
    else if (kind < 9)
        changeNode(id);
    else if (kind == 9)
        oneIn(2) ? changeTags(id) : stackSeveral(id);
    else if (kind == 10)
        changeScene(anyScene());
    else
        changeHandles(id);
}

std::vector<int> Play::idsOf(const std::vector<Node>& nodes) const
{
    std::vector<int> ids;
    for (const Node& node : nodes)
        ids.push_back(idOf(node));
    return ids;
}

/// Whoever is alive, as handles and scenes lead to them.
std::map<int, RectNode> Play::reachable()
{
    std::vector<Node> found;
    for (const auto& handles : m_handles)
        found.insert(found.end(), handles.begin(), handles.end());
    for (const auto& scene : m_scenes) {
        for (const Node& node : scene->getAllNodes())
            found.push_back(node);
    }
    std::map<int, RectNode> nodes;
    while (!found.empty()) {
        const Node node = found.back();
        found.pop_back();
        if (!nodes.emplace(idOf(node), static_cast<const RectNode&>(node)).second)
            continue;
        for (const Node& child : node.getChildren())
            found.push_back(child);
    }
    return nodes;
}

void Play::compareEvents()
{
    for (std::size_t i = 0; i < m_scenes.size(); ++i) {
        const Events &told = m_told[i], &due = m_model.events[i];
        const auto isSame = [&](std::vector<int> a, std::vector<int> b) {
            for (std::size_t at = 0; at < a.size(); ++at) {
                for (std::size_t later = at; later < a.size(); ++later)
                    expect(m_model.nodes[a[at]].parent != a[later],
                           "told of a child before its parent");
            }
            std::sort(a.begin(), a.end());
            std::sort(b.begin(), b.end());
            return a == b;
        };
        expect(isSame(told.added, due.added), "nodeAdded calls");
        expect(isSame(told.removed, due.removed), "nodeRemoved calls");
        const bool isMove = !due.added.empty() || !due.removed.empty();
        expect(isMove || told.changed == due.changed, "nodeChanged calls");
    }
}

void Play::compareNode(int id, const Node& node)
{
    const SceneModel::Node& model = m_model.nodes[id];
    const std::string of = " of " + std::to_string(id);
    const Node parent = node.getParent();
    expect((parent.isValid() ? idOf(parent) : -1) == model.parent, "parent" + of);
    expect(idsOf(node.getChildren()) == m_model.childrenOf(id), "children" + of);
    expect(node.getScene() == (model.scene < 0 ? nullptr : m_scenes[model.scene].get()),
           "scene" + of);
    expect(node.getZValue() == model.z, "z" + of);
    expect(node.isVisible() == model.isVisible, "isVisible" + of);
    expect(node.isVisibleToScene() == m_model.isShown(id), "isVisibleToScene" + of);
    expect(node.getOpacity() == model.opacity, "opacity" + of);
    expect(node.getFillColor().packed() == model.color, "style" + of);
    expect(node.getPosition() == model.position, "position" + of);
    expect(node.mapLocalRectToSceneRect(model.rect) == m_model.toScene(id).mapRect(model.rect),
           "mapping" + of);
    std::map<std::string, int> tags;
    for (const auto& tag : node.getTags()) {
        const Vetra::any value = node.getTagValue(tag);
        tags[tag.str()] = value.has_value() ? std::any_cast<int>(value) : 0;
    }
    expect(tags == model.tags, "tags" + of);
}

void Play::compareScene(int scene)
{
    const std::string of = " of scene " + std::to_string(scene);
    const auto& real = m_scenes[scene];
    const auto order = m_model.stackingOrder(scene);
    expect(idsOf(real->getAllNodes()) == order, "getAllNodes" + of);
    expect(real->getAllNodesCount() == order.size(), "getAllNodesCount" + of);
    auto tops = m_model.topLevelsOf(scene);
    std::reverse(tops.begin(), tops.end());
    expect(idsOf(real->getTopLevelNodes()) == tops, "getTopLevelNodes" + of);
    expect(real->getSceneNodeChangeCounter() == m_model.scenes[scene].counter, "counter" + of);
    const std::string difference = differenceFromAnew(*real->d_func());
    expect(difference.empty(), "display list" + of + ": " + difference);
    if (!order.empty())
        expect(real->getBounds() == m_model.boundsOf(scene), "getBounds" + of);
}

void Play::compareQueries(int scene)
{
    const Point point{below(60) - 20 + 0.37, below(60) - 20 + 0.41};
    const Rect area{point.x, point.y, below(30) + 0.13, below(60) + 0.17};
    std::vector<int> at, touching, within;
    for (int id : m_model.stackingOrder(scene)) {
        if (m_model.isHit(id, point))
            at.push_back(id);
        if (m_model.touches(id, area))
            touching.push_back(id);
        if (m_model.isWithin(id, area))
            within.push_back(id);
    }
    Scene& real = *m_scenes[scene];
    expect(idsOf(real.getNodesAtScenePos(point)) == at, "getNodesAtScenePos");
    const Node top = real.getNodeAt(point);
    expect((top.isValid() ? idOf(top) : -1) == (at.empty() ? -1 : at.front()), "getNodeAt");
    expect(idsOf(real.getNodesIntersectingRect(area)) == touching, "getNodesIntersectingRect");
    expect(idsOf(real.getNodesWithinRect(area)) == within, "getNodesWithinRect");
}

void Play::comparePicture(int scene)
{
    const QSize size(static_cast<int>(kView.width), static_cast<int>(kView.height));
    QImage due(size, QImage::Format_RGB32), real(size, QImage::Format_RGB32);
    due.fill(Qt::white);
    real.fill(Qt::white);
    m_scenes[scene]->render(real, {}, kView);
    QPainter painter(&due);
    const QTransform view = QTransform::fromTranslate(-kView.x, -kView.y);
    auto order = m_model.stackingOrder(scene);
    std::reverse(order.begin(), order.end());
    for (int id : order) {
        if (!m_model.isShown(id))
            continue;
        painter.setClipping(false);
        for (int at = m_model.nodes[id].parent; at >= 0; at = m_model.nodes[at].parent) {
            painter.setTransform(Vetra::toQt(m_model.onScreen(at)) * view);
            if (m_model.nodes[at].clips)
                painter.setClipRect(Vetra::toQt(m_model.outline(at)),
                                    painter.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
        }
        painter.setTransform(Vetra::toQt(m_model.onScreen(id)) * view);
        painter.setOpacity(m_model.opacityOf(id));
        painter.setBrush(QColor(m_model.nodes[id].color));
        painter.setPen(m_model.nodes[id].hasStroke
                           ? QPen(Qt::black, 2, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin)
                           : QPen(Qt::NoPen));
        painter.drawRect(Vetra::toQt(m_model.nodes[id].rect));
    }
    painter.end();
    expect(real == due, "picture of scene " + std::to_string(scene));
}

void Play::compare()
{
    m_model.collect();
    compareEvents();
    const auto nodes = reachable();
    for (std::size_t i = 0; i < m_model.nodes.size(); ++i) {
        const auto found = nodes.find(static_cast<int>(i));
        expect(m_model.nodes[i].isAlive == (found != nodes.end()), "life of " + std::to_string(i));
        if (found != nodes.end())
            compareNode(static_cast<int>(i), found->second);
    }
    for (std::size_t i = 0; i < m_scenes.size(); ++i) {
        const int scene = static_cast<int>(i);
        if (oneIn(2)) // so that what is repaired late has more than one edit behind it
            compareScene(scene);
        if (oneIn(4))
            compareQueries(scene);
        if (oneIn(12))
            comparePicture(scene);
    }
}

std::string Play::run(int steps)
{
    for (int i = 0; i < 3; ++i) {
        m_scenes.push_back(Scene::createScene());
        m_trackers.push_back(std::make_unique<Tracker>(*this, i));
    }
    m_model.scenes.resize(m_scenes.size());
    for (int i = 0; i < steps && m_failure.empty(); ++i) {
        step();
        compare();
    }
    return m_failure.empty() ? "" : m_failure + "\n" + m_calls.str();
}

TEST(RandomOperationsTest, SceneDoesAsTheModelSays)
{
    const Figures before;
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        const std::string failure = Play(seed).run(50);
        ASSERT_TRUE(failure.empty()) << "seed " << seed << ": " << failure;
        ASSERT_EQ(Figures(), before) << "seed " << seed << " left something behind";
    }
}

// Of more nodes than a block of the list holds, and with edits that pile up before it is repaired.
TEST(RandomOperationsTest, ListOfAWideSceneIsAsOneMadeAnew)
{
    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto below = [&](std::size_t limit) { return random() % limit; };
        const auto scene = Scene::createScene();
        std::vector<RectNode> nodes;
        const auto any = [&]() -> RectNode& { return nodes[below(nodes.size())]; };
        for (int step = 0; step < 600; ++step) {
            if (nodes.size() < 20 || (nodes.size() < 400 && below(3) == 0)) {
                nodes.emplace_back(Rect{0, 0, 10, 10});
                scene->addNode(nodes.back());
            }
            RectNode node = any(), other = any();
            const std::vector<std::function<void()>> edits{
                [&] { other.getParent().isValid() ? void() : node.setParent(other); },
                [&] { node.unparent(); },
                [&] { node.toTop(); },
                [&] { node.setZValue(below(30) * 0.5); },
                [&] {
                    Node::placeAbove({node, any(), any()}, other);
                },
                [&] {
                    Node::placeBelow({node, any()}, other);
                },
                [&] { node.setStacksBehindParent(below(4) == 0); },
                [&] {
                    node.setPosition({below(100) * 1.0, 0});
                },
                [&] { node.setVisible(below(4) != 0); },
                [&] { scene->removeNode(node), scene->addNode(node); },
                [&] {
                    for (std::size_t i = below(8) == 0 ? nodes.size() / 2 : 0; i > 0; --i)
                        any().toBottom();
                },
            };
            try {
                edits[below(edits.size())]();
            } catch (const Vetra::Error&) {
                // a cycle
            }
            if (below(4) == 0) {
                ASSERT_EQ(differenceFromAnew(*scene->d_func()), "") << seed << ", " << step;
            }
        }
    }
}

} // namespace
