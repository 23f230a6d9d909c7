#include "nodes/flagscope.h"
#include "scene/watching.h"
#include "tova/events/focusevent.h"
#include "tova/events/mouseevent.h"
#include "tova/nodes/customnode.h"
#include "tova/nodes/customnodepainter.h"
#include "tova/nodes/nodeemitters.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"
#include "tova/scene/scenechangetracker.h"
#include "vetra/pixmap.h"

#include "host/diagnosticscounter.h"
#include "vetra/error.h"

#include <gtest/gtest.h>

#include <QImage>

#include <array>
#include <functional>
#include <random>
#include <set>

namespace {

using namespace Tova2;

struct Thrown {};

/// Scenes, nodes and handles that every callback may do anything to.
class World : public SceneChangeTracker, public Vemit::Listener {
public:
    explicit World(unsigned seed) : m_random(seed)
    {
        for (auto& scene : m_scenes)
            renew(scene);
    }
    ~World() override
    {
        m_isCalm = true;
        for (auto& scene : m_scenes)
            scene->endChangeTracking();
        m_handles.clear();
        for (auto& scene : m_scenes)
            scene.reset();
    }
    void run(int steps)
    {
        for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
            act();
            checkWhole();
        }
    }

    void nodeAdded(Node) override { callback(); }
    void nodeRemoved(Node) override { callback(); }
    void nodeChanged(Node) override { callback(); }

    void callback(int rarity = 3)
    {
        if (m_isCalm || m_depth > 2 || !oneIn(rarity))
            return;
        if (oneIn(8))
            throw Thrown();
        act();
    }
    bool oneIn(int n) { return below(n) == 0; }

private:
    int below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(m_random); }
    void renew(Vetra::Holder<Scene>& scene)
    {
        scene = Scene::createScene();
        if (oneIn(2))
            watch(*scene);
        scene->beginChangeTracking(this);
    }
    void act()
    {
        ++m_depth;
        try {
            call();
        } catch (const Thrown&) {
        } catch (const Vetra::Error&) { // illegal parents
        }
        --m_depth;
    }
    Node make();
    void call();
    void callOn(Node& node, Vetra::Holder<Scene>& scene);
    void listenTo(Node& node);
    void query(Scene& scene);
    void point(Scene& scene);
    void checkWhole();

    std::mt19937 m_random;
    std::array<Vetra::Holder<Scene>, 2> m_scenes;
    std::vector<Node> m_handles;
    int m_depth = 0;
    bool m_isCalm = false;
};

struct HostileTester : CustomHitTestFunctor {
    explicit HostileTester(World& world) : m_world(world) {}
    bool contains(const Node&, double, const Vetra::GLPoint<double>&) const override
    {
        m_world.callback();
        return m_world.oneIn(2);
    }
    bool intersects(const Node&, double, const Vetra::GLRect<double>&) const override
    {
        m_world.callback();
        return m_world.oneIn(2);
    }
    bool intersects(const Node&, double, const Bounds&) const override
    {
        m_world.callback();
        return m_world.oneIn(2);
    }
    Bounds hitTestBounds(const Node&, double) const override
    {
        m_world.callback();
        return Bounds(Vetra::GLRect<double>{0, 0, 99, 99});
    }
    World& m_world;
};

/// Asked for bounds by nearly everything, so it does something more seldom then.
struct HostilePainter : CustomNodePainter {
    explicit HostilePainter(World& world) : m_world(world) {}
    Vetra::GLRect<double> getBoundingRect(double) const override
    {
        m_world.callback(16);
        return {0, 0, 30, 30};
    }
    Bounds getOutlineStroked(double) const override
    {
        m_world.callback(8);
        return Bounds(Vetra::GLRect<double>{0, 0, 30, 30});
    }
    void paint(QPainter*, double, const Vetra::GLRect<double>&, const PaintOptions&) override
    {
        m_world.callback();
    }
    World& m_world;
};

Node World::make()
{
    if (oneIn(3)) {
        CustomNode node;
        node.setPainter(new HostilePainter(*this));
        return node;
    }
    RectNode node({0, 0, 10.0 + below(20), 10});
    if (oneIn(3))
        node.setCustomHitTestFunctor(new HostileTester(*this));
    if (oneIn(2))
        listenTo(node);
    return node;
}

void World::listenTo(Node& node)
{
    const auto hear = [this](Event&, const NodeEmitters::Tags&) { callback(); };
    for (auto emitter : {&NodeEmitters::hoverEnter, &NodeEmitters::hoverMove,
                         &NodeEmitters::hoverExit, &NodeEmitters::mousePress})
        node.connectTo(emitter, this, hear);
    for (auto emitter : {&NodeEmitters::focusIn, &NodeEmitters::focusOut})
        node.connectTo(emitter, this, hear);
}

void World::point(Scene& scene)
{
    const auto type = oneIn(2) ? EventType::MouseMoveEvent : EventType::MousePressEvent;
    MouseEvent event(type, nullptr, {below(60) * 1.0, 5}, {}, {}, 0, Vetra::MouseButton::LeftButton,
                     {}, {}, false, true);
    if (type == EventType::MouseMoveEvent)
        scene.handleMouseMoveEvent(event);
    else
        scene.passMousePressEventToNode(event);
}

void World::call()
{
    auto& scene = m_scenes[static_cast<std::size_t>(below(2))];
    if (m_handles.empty() || (m_handles.size() < 10 && oneIn(4))) {
        m_handles.push_back(make());
        return;
    }
    // By reference: a handle may go away in the middle of a call on it.
    Node& node = m_handles[static_cast<std::size_t>(below(static_cast<int>(m_handles.size())))];
    switch (below(19)) {
    case 16:
    case 17:
    case 18:
        return point(*scene);
    case 0:
        return scene->destroy();
    case 1:
        return oneIn(3) ? renew(scene) : void();
    case 2:
    case 3:
    case 4:
        return query(*scene);
    default:
        return callOn(node, scene);
    }
}

void World::callOn(Node& node, Vetra::Holder<Scene>& scene)
{
    const auto& other =
        m_handles[static_cast<std::size_t>(below(static_cast<int>(m_handles.size())))];
    const std::function<void()> calls[] = {
        [&] { scene->addNode(node); },
        [&] { scene->addNode(node); },
        [&] { scene->removeNode(node); },
        [&] { node.setParent(other); },
        [&] { node.setParent(other); },
        [&] { node.unparent(); },
        [&] { node.setVisible(oneIn(2)); },
        [&] { node.placeAbove(other); },
        [&] {
            Node::placeBelow(std::vector{node, other, m_handles.front()}, m_handles.back());
        },
        [&] { node.setPosition(Vetra::GLPoint<double>(below(30), below(30))); },
        [&] { node.setStrokeColor(Vetra::Color::fromPacked(0xff000000u | below(9999))); },
        [&] { node.removeAndRelease(); },
        [&] { node.setCustomHitTestFunctor(nullptr); },
        [&] { other.isValid() ? void(other.getParent()) : void(); },
        [&] {
            const Node dropped = node; // out of the list before it may die
            std::erase(m_handles, dropped);
        },
        [&] {
            node.release();
            std::erase(m_handles, Node());
        },
        [&] {
            node.setEffect(Effect::createEffect(Effect::Shadow(0.5, below(5), {2, 2}, true)));
        },
        [&] { node.scale(1.0 + below(2)); },
        [&] { node.setClipsChildren(oneIn(2)); },
        [&] { node.setIgnoresTransformations(oneIn(2)); },
        [&] { node.getBoundingRect(); },
        [&] {
            node.containsScenePoint({5, 5});
        },
        [&] { node.intersects(Vetra::GLRect<double>(0, 0, 5, 5)); },
        [&] {
            Vetra::GLPoint<double> offset;
            node.renderToPixmap(CacheType::NoCache, 1, offset);
        },
        [&] {
            if (auto custom = node.as<CustomNode>(); custom.isValid())
                custom.boundsChanging();
        },
    };
    calls[static_cast<std::size_t>(below(std::size(calls)))]();
}

void World::query(Scene& scene)
{
    QImage image(60, 60, QImage::Format_RGB32);
    const std::function<void()> queries[] = {
        [&] { scene.getNodesAtScenePos(Vetra::GLPoint<double>(5, 5)); },
        [&] { scene.getNodeAt(Vetra::GLPoint<double>(5, 5)); },
        [&] { scene.getNodesIntersectingRect(Vetra::GLRect<double>(0, 0, 5, 50)); },
        [&] { scene.getNodesIntersectingCircle(Vetra::GLPoint<double>(15, 5), 9); },
        [&] { scene.render(image, {}, Vetra::GLRect<double>(0, 0, 60, 60)); },
        [&] { scene.render(); },
        [&] { scene.getBounds(); },
        [&] { scene.getAllNodes(); },
        [&] { scene.getTopLevelNodes(); },
        [&] { scene.getNodesWithTag(Vetra::StringID("some")); },
        [&] { scene.getNodesWithinRect(Vetra::GLRect<double>(0, 0, 90, 90)); },
    };
    queries[static_cast<std::size_t>(below(std::size(queries)))]();
}

void World::checkWhole()
{
    const FlagScope calm(m_isCalm);
    for (const auto& scene : m_scenes) {
        const auto all = scene->getAllNodes();
        std::set<std::size_t> seen;
        ASSERT_EQ(all.size(), scene->getAllNodesCount());
        for (const Node& node : all) {
            ASSERT_TRUE(seen.insert(node.hashValue()).second) << "twice in the scene";
            ASSERT_EQ(node.getScene(), scene.get());
            const Node parent = node.getParent();
            ASSERT_TRUE(!parent.isValid() || parent.getScene() == scene.get());
        }
    }
}

std::int64_t instances()
{
    return Host::DiagnosticsCounter::counter("Node:Node pool instance count").value();
}

TEST(HostileCallbacksTest, AnyCallFromAnyCallbackLeavesScenesWhole)
{
    const auto before = instances();
    for (unsigned seed = 1; seed <= 3000 && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        World(seed).run(120);
        ASSERT_EQ(instances(), before);
    }
}

} // namespace
