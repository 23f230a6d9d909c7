#include "support/rows.h"
#include "tova/events/tool.h"
#include "tova/nodes/customnode.h"
#include "tova/nodes/customnodepainter.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"
#include "tova/scene/scenechangetracker.h"
#include "vetra/error.h"
#include "vetra/errorreporter.h"

#include <gtest/gtest.h>

#include <functional>
#include <pthread.h>

namespace {

using namespace Tova2;
using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;

RectNode filled(double x = 0)
{
    RectNode node({x, 0, 10, 10});
    node.setFill(Fill(Vetra::Color::fromPacked(0xff203040)));
    return node;
}

TEST(LifetimeTest, HandlesOutliveSceneAndParent)
{
    RectNode parent = filled(), child = filled();
    child.setParent(parent);
    auto scene = Scene::createScene();
    scene->addNode(parent);
    scene.reset();
    EXPECT_EQ(child.getScene(), nullptr);
    EXPECT_EQ(child.getParent(), parent);
    parent.release();
    EXPECT_FALSE(child.getParent().isValid());
    child.setRect({0, 0, 3, 3});
    EXPECT_EQ(Scene::createScene()->addNode(child), child);
}

TEST(LifetimeTest, ResultsAreSnapshotsToEditBy)
{
    using Query = std::function<std::vector<Node>(Scene&)>;
    const Query queries[] = {
        [](Scene& s) { return s.getAllNodes(); },
        [](Scene& s) { return s.getTopLevelNodes(); },
        [](Scene& s) { return s.getNodesAtScenePos(Point(5, 5)); },
        [](Scene& s) { return s.getNodesIntersectingRect(Rect(0, 0, 50, 50)); },
        [](Scene& s) { return s.getNodesWithinRect(Rect(-5, -5, 50, 50)); },
        [](Scene& s) { return s.getNodesIntersectingCircle(Point(5, 5), 9); },
        [](Scene& s) { return s.getNodesWithTag(Vetra::StringID("some")); },
        [](Scene& s) {
            return s.getAllNodes().back().getDescendantsWithTag(Vetra::StringID("some"));
        },
    };
    for (const Query& query : queries) {
        const auto scene = Scene::createScene();
        for (int i = 0; i < 3; ++i) {
            RectNode parent = filled(), child = filled(), grandchild = filled();
            child.setParent(parent);
            grandchild.setParent(child);
            for (RectNode& node : std::vector<RectNode>{parent, child, grandchild})
                node.addTag(Vetra::StringID("some"));
            scene->addNode(parent);
        }
        auto nodes = query(*scene);
        ASSERT_FALSE(nodes.empty());
        for (Node& node : nodes) {
            for (Node& child : node.getChildren())
                child.removeAndRelease();
            node.removeAndRelease();
        }
        EXPECT_LT(scene->getAllNodesCount(), 9u);
        EXPECT_EQ(scene->getAllNodes().size(), scene->getAllNodesCount());
    }
}

/// Whatever a test does the first time it is painted.
struct ActingPainter : CustomNodePainter {
    Vetra::GLRect<double> getBoundingRect(double) const override { return {0, 0, 10, 10}; }
    void paint(QPainter*, double, const Vetra::GLRect<double>&, const PaintOptions&) override
    {
        if (const auto act = std::exchange(action, nullptr))
            act();
    }
    std::function<void()> action;
};

/// ancestor > parent > (below, painted, above), stacked in that order.
struct Family {
    Vetra::Holder<Scene> scene = Scene::createScene();
    RectNode ancestor = filled(), parent = filled(), below = filled(), above = filled();
    CustomNode painted;
    Vetra::Holder<ActingPainter> painter{new ActingPainter};

    Family()
    {
        painted.setPainter(painter.get());
        scene->addNode(ancestor);
        parent.setParent(ancestor);
        for (Node node : {Node(below), Node(painted), Node(above)})
            node.setParent(parent);
    }
};

struct PaintEdit : NamedRow {
    std::function<void(Family&, Node&)> edit;
    bool takesOut;
};

const PaintEdit paintEdits[] = {
    {"removeNode", [](Family& f, Node& node) { f.scene->removeNode(node); }, true},
    {"removeAndRelease", [](Family&, Node& node) { Node(node).removeAndRelease(); }, true},
    {"setParent elsewhere", [](Family&, Node& node) { node.setParent(filled()); }, true},
    {"unparent", [](Family&, Node& node) { node.unparent(); }, false},
    {"hide", [](Family&, Node& node) { node.setVisible(false); }, false},
    {"drop all handles",
     [](Family& f, Node& node) {
         node.remove();
         f.ancestor = f.parent = f.below = f.above = RectNode();
         f.painted.release();
     },
     true},
    {"replace the painter", [](Family& f, Node&) { f.painted.setPainter(nullptr); }, false},
    {"destroy the scene", [](Family& f, Node&) { f.scene->destroy(); }, true},
    {"drop the scene", [](Family& f, Node&) { f.scene.reset(); }, true},
    {"render again", [](Family& f, Node&) { f.scene->render(); }, false},
    {"throw", [](Family&, Node&) { throw std::runtime_error("painter"); }, false},
};

TEST(LifetimeTest, APainterMayDoAnythingToAnybody)
{
    for (const PaintEdit& row : paintEdits) {
        for (int target = 0; target < 5; ++target) {
            SCOPED_TRACE(std::string(row.name) + " on relative " + std::to_string(target));
            Family f;
            Node relatives[] = {f.painted, f.parent, f.ancestor, f.below, f.above};
            Node node = relatives[target];
            for (Node& relative : relatives)
                relative.release();
            f.painter->action = [&] {
                row.edit(f, node);
                if (row.takesOut) {
                    EXPECT_EQ(node.getScene(), nullptr);
                }
            };
            try {
                Scene& scene = *f.scene;
                scene.render(5);
            } catch (const std::runtime_error&) {
            }
            EXPECT_FALSE(f.painter->action) << "never painted";
            if (f.scene) {
                EXPECT_FALSE(f.scene->render()->isNull());
            }
        }
    }
}

/// A tracker that insists on what it is told.
struct InsistingTracker : SceneChangeTracker {
    explicit InsistingTracker(Scene& watched) : scene(watched) {}
    void nodeAdded(Node node) override
    {
        ++added;
        scene.addNode(node);
    }
    void nodeRemoved(Node node) override
    {
        ++removed;
        scene.removeNode(node);
    }
    void nodeChanged(Node) override {}
    Scene& scene;
    int added = 0, removed = 0;
};

TEST(LifetimeTest, ATrackerThatRepeatsWhatItIsToldIsToldOnce)
{
    const auto scene = Scene::createScene();
    InsistingTracker tracker(*scene);
    scene->beginChangeTracking(&tracker);
    RectNode parent = filled(), child = filled();
    child.setParent(parent);
    scene->addNode(parent);
    EXPECT_EQ(tracker.added, 2);
    scene->destroy();
    EXPECT_EQ(tracker.removed, 2);
    EXPECT_EQ(scene->getAllNodesCount(), 0u);
    scene->endChangeTracking();
}

struct FailingTool : Tool {
    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    Vetra::StringID getDefaultRole() const override { return Vetra::StringID("FailingTool"); }
    void cancel(ECancelReason, const Tool*) override {}
    void onRemoveFromStack() override { throw std::runtime_error("tool"); }
};

// Out of a destructor, where it would end the process.
TEST(LifetimeTest, WhatAToolThrowsAtTheEndOfItsSceneIsReported)
{
    int reported = 0;
    Vetra::setErrorReporter([&](std::exception_ptr) { ++reported; });
    const RectNode node = filled();
    auto scene = Scene::createScene();
    scene->addNode(node);
    scene->addTool(new FailingTool);
    scene.reset();
    Vetra::setErrorReporter({});
    EXPECT_EQ(reported, 1);
    EXPECT_EQ(node.getScene(), nullptr);
}

TEST(LifetimeTest, ATagsValueMayEditTheTagsAsItEnds)
{
    const Vetra::StringID tag("some");
    const std::function<void(Node&)> ends[] = {
        [&](Node& node) { node.addTag(tag); },
        [&](Node& node) { node.removeTag(tag); },
        [](Node& node) { node.removeAllTags(); },
    };
    for (const auto& end : ends) {
        for (const auto& act : {ends[0], ends[1], ends[2]}) {
            Node node = filled();
            node.addTag(tag, std::shared_ptr<void>(&node, [&](void*) {
                            act(node);
                            node.release();
                        }));
            end(node);
            EXPECT_FALSE(node.isValid());
        }
    }
}

/// Neither building nor searching nor taking down may use stack in proportion to the depth.
void growAndFell(int depth)
{
    const auto scene = Scene::createScene();
    RectNode top = filled(), at = top;
    for (int i = 1; i < depth / 2; ++i) { // top-down
        RectNode below = filled();
        below.setParent(at);
        at = below;
    }
    for (int i = depth / 2; i < depth; ++i) { // bottom-up
        RectNode above = filled();
        top.setParent(above);
        top = above;
    }
    EXPECT_THROW(top.setParent(at), Vetra::Error);
    if (depth > 5000) // into a scene and out of it the toolkit takes time with the square of it
        return;
    scene->addNode(top);
    EXPECT_EQ(scene->getAllNodesCount(), static_cast<unsigned>(depth));
    EXPECT_EQ(scene->getAllNodes().front(), at);
    EXPECT_EQ(scene->getNodesAtScenePos({5, 5}).size(), static_cast<std::size_t>(depth));
    top.setPosition({3, 0});
    EXPECT_EQ(at.getScenePosition().x, 3);
    scene->removeNode(top);
    EXPECT_EQ(at.getScene(), nullptr);
    scene->addNode(top);
}

TEST(LifetimeTest, DepthCostsNoStack)
{
    static constexpr int kDepths[] = {10, 1000, 5000, 20000};
    for (const int& depth : kDepths) {
        pthread_attr_t attributes;
        pthread_attr_init(&attributes);
        pthread_attr_setstacksize(&attributes, 1 << 20);
        pthread_t thread;
        const auto run = [](void* argument) -> void* {
            growAndFell(*static_cast<const int*>(argument));
            return nullptr;
        };
        ASSERT_EQ(pthread_create(&thread, &attributes, run, const_cast<int*>(&depth)), 0);
        pthread_join(thread, nullptr);
        pthread_attr_destroy(&attributes);
    }
}

TEST(LifetimeTest, WhatIsNestedTooDeepIsLeftOutOfPictures)
{
    const auto scene = Scene::createScene();
    RectNode at = filled();
    scene->addNode(at);
    for (int i = 0; i < 3000; ++i) {
        RectNode below = filled();
        below.setParent(at);
        at = below;
    }
    EXPECT_FALSE(scene->render()->isNull());
}

TEST(LifetimeTest, ManySiblingsComeAndGoInLinearTime)
{
    const auto scene = Scene::createScene();
    constexpr int kCount = 200000; // at quadratic cost this would take minutes
    for (int i = 0; i < kCount; ++i)
        scene->addNode(filled(i % 1000 * 20.0));
    EXPECT_EQ(scene->getAllNodesCount(), static_cast<unsigned>(kCount));
    EXPECT_EQ(scene->getNodesAtScenePos({10005, 5}).size(),
              static_cast<std::size_t>(kCount / 1000));
}

} // namespace
