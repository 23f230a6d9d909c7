#include "scene/watching.h"
#include "support/rows.h"
#include "tova/tova.h"

#include <gmock/gmock.h>

#include <functional>

using namespace Tova2;

namespace {

using Rect = Vetra::GLRect<double>;

/// A host's painter that does something else the first time it is asked for its bounds.
class BusyPainter : public CustomNodePainter {
public:
    std::function<void()> onBounds;

private:
    Rect getBoundingRect(double) const override
    {
        if (onBounds)
            std::exchange(const_cast<BusyPainter*>(this)->onBounds, nullptr)();
        return {0, 0, 10, 10};
    }
    void paint(QPainter*, double, const Rect&, const PaintOptions&) override {}
};

/// group > (busy, sibling), and another beside it.
struct Family {
    Vetra::Holder<Scene> scene = Scene::createScene();
    Scene& here = *scene;
    CustomNode busy;
    RectNode group{Rect{0, 0, 40, 40}}, sibling{Rect{20, 0, 10, 10}}, other{Rect{100, 0, 10, 10}};
    Vetra::Holder<BusyPainter> painter{new BusyPainter};

    explicit Family(bool isWatched)
    {
        busy.setPainter(painter.get());
        scene->addNode(group);
        scene->addNode(other);
        busy.setParent(group);
        sibling.setParent(group);
        if (isWatched)
            watch(*scene);
        scene->getBounds();
    }
};

using Step = void (*)(Family&);
struct Call : NamedRow {
    Step step;
};

const Call acts[] = {
    {"leaves for good",
     [](Family& f) {
         f.busy.remove();
         f.busy.release();
     }},
    {"takes its sibling out",
     [](Family& f) {
         f.sibling.remove();
         f.sibling.release();
     }},
    {"drops the group",
     [](Family& f) {
         f.group.remove();
         f.busy = CustomNode();
         f.group = f.sibling = RectNode();
     }},
    {"is taken from its parent", [](Family& f) { f.busy.unparent(); }},
    {"joins another scene",
     [](Family& f) {
         static const auto away = Scene::createScene();
         away->addNode(f.busy);
     }},
    {"drops the scene", [](Family& f) { f.scene.reset(); }},
    {"moves its parent", [](Family& f) { f.group.translate(50, 7); }},
    {"moves another", [](Family& f) { f.other.translate(300, 0); }},
    {"adds to the scene",
     [](Family& f) {
         f.here.addNode(RectNode(Rect{200, 200, 10, 10}));
     }},
    {"asks back",
     [](Family& f) {
         f.here.getBounds();
         f.here.getNodesWithinRect({0, 0, 500, 500});
         f.here.render();
         f.busy.getBoundingRect();
     }},
    {"throws", [](Family&) { throw std::runtime_error("painter"); }},
};

const Call calls[] = {
    {"getBounds", [](Family& f) { f.here.getBounds(); }},
    {"getAllNodes", [](Family& f) { f.here.getAllNodes(); }},
    {"getTopLevelNodes", [](Family& f) { f.here.getTopLevelNodes(); }},
    {"getNodesWithTag", [](Family& f) { f.here.getNodesWithTag(Vetra::StringID("some")); }},
    {"getNodesWithinRect",
     [](Family& f) {
         for (const Node& node : f.here.getNodesWithinRect({-5, -5, 90, 90}))
             EXPECT_EQ(node.getScene(), f.scene.get());
     }},
    {"getNodesIntersectingRect",
     [](Family& f) {
         f.here.getNodesIntersectingRect({-5, -5, 90, 90});
     }},
    {"getNodeAt",
     [](Family& f) {
         f.here.getNodeAt({5, 5});
     }},
    {"render", [](Family& f) { f.here.render(); }},
    {"getBoundingRect", [](Family& f) { f.busy.getBoundingRect(); }},
    {"renderToPixmap",
     [](Family& f) {
         Vetra::GLPoint<double> offset;
         f.group.renderToPixmap(CacheType::NoCache, 1, offset);
     }},
    {"boundsChanging", [](Family& f) { f.busy.boundsChanging(); }},
    {"setPosition",
     [](Family& f) {
         f.busy.setPosition({3, 3});
     }},
    {"setPosition of the parent",
     [](Family& f) {
         f.group.setPosition({3, 3});
     }},
    {"setEffect",
     [](Family& f) {
         f.busy.setEffect(Effect::createEffect(Effect::Shadow(0.5, 3, {2, 2}, true)));
     }},
    {"setVisible", [](Family& f) { f.group.setVisible(false); }},
    {"setParent", [](Family& f) { f.busy.setParent(f.other); }},
    {"toTop", [](Family& f) { f.group.toTop(); }},
    {"removeNode", [](Family& f) { f.here.removeNode(f.group); }},
};

Rect boundsNodeByNode(Scene& scene)
{
    Rect all;
    for (const Node& node : scene.getAllNodes()) {
        const Rect rect = node.mapLocalRectToSceneRect(node.getBoundingRect());
        if (node.isVisibleToScene())
            all = all.isValid() ? all.united(rect) : rect;
    }
    return all;
}

TEST(HostilePainterTest, APainterThatIsAskedForBoundsMayDoAnything)
{
    int asked = 0;
    for (const Call& call : calls) {
        for (const Call& act : acts) {
            for (const bool isWatched : {false, true}) {
                SCOPED_TRACE(std::string(act.name) + " in " + call.name +
                             (isWatched ? ", watched" : ""));
                Family f(isWatched);
                const auto painter = f.painter;
                f.busy.boundsChanging(); // so that it is asked again
                painter->onBounds = [&] {
                    ++asked;
                    act.step(f);
                };
                call.step(f);
                painter->onBounds = nullptr;
                if (!f.scene)
                    continue;
                EXPECT_EQ(f.scene->getAllNodes().size(), f.scene->getAllNodesCount());
                EXPECT_EQ(f.scene->getBounds(), boundsNodeByNode(*f.scene));
            }
        }
    }
    EXPECT_GE(asked, 250); // of 396; what edits an unwatched scene asks nobody
}

class HostileBoundsTest : public testing::Test {
protected:
    Vetra::Holder<Scene> m_scene = Scene::createScene();
    RectNode m_other{Rect{100, 0, 10, 10}};
};

class Refiller : public SceneChangeTracker {
public:
    explicit Refiller(Scene& scene) : m_scene(scene) {}
    void nodeAdded(Node) override {}
    void nodeRemoved(Node) override
    {
        ++removed;
        m_scene.addNode(RectNode());
    }
    void nodeChanged(Node) override {}
    int removed = 0;

private:
    Scene& m_scene;
};

// A tracker that keeps a scene from being empty must not keep its end from coming.
TEST_F(HostileBoundsTest, DestroyEndsAlthoughATrackerRefills)
{
    m_scene->addNode(m_other);
    Refiller refiller(*m_scene);
    m_scene->beginChangeTracking(&refiller);
    m_scene->destroy();
    EXPECT_EQ(m_scene->getAllNodesCount(), 0u);
    EXPECT_EQ(refiller.removed, 1);
    m_scene->endChangeTracking();
}

TEST_F(HostileBoundsTest, WhatAsksBackIsFoundOnceItHasAnswered)
{
    Family f(false);
    f.busy.translate(300, 0);
    f.painter->onBounds = [&] { f.here.getBounds(); };
    f.busy.getBoundingRect();
    EXPECT_EQ(f.here.getBounds(), boundsNodeByNode(f.here));
}

TEST_F(HostileBoundsTest, AMoveAmidARefreshReachesWhatWasLookedAtBefore)
{
    Family f(false);
    f.sibling.setStacksBehindParent(true);
    f.busy.setStacksBehindParent(true);
    f.sibling.toBottom(); // sibling, busy, group
    f.here.getBounds();
    f.group.translate(1, 0);
    f.painter->onBounds = [&] { f.group.translate(300, 0); };
    f.here.getBounds();
    EXPECT_EQ(f.here.getBounds(), boundsNodeByNode(f.here));
}

TEST_F(HostileBoundsTest, FarAndTinyMovesAreStoredExactly)
{
    m_scene->addNode(m_other);
    m_other.setPosition({1e12, 0});
    m_other.translate(0.5, 0);
    EXPECT_EQ(m_other.getPosition().x, 1e12 + 0.5);
    m_other.setPosition({0, 0});
    m_other.setPosition({1e-14, 0});
    EXPECT_EQ(m_other.getPosition().x, 1e-14);
}

} // namespace
