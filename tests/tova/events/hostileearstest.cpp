#include "events/nodeears.h"

#include "tova/events/widgetevent.h"
#include "tova/nodes/containernode.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"

#include "host/diagnosticscounter.h"

#include <gtest/gtest.h>

#include <QEventLoop>
#include <QTimer>

namespace {

using namespace Tova2;

struct Thrown {};

/// A node in a group in a scene; all of it may go inside a callback.
struct World {
    World()
    {
        scene->addNode(group);
        node.setParent(group);
        ears.listenTo(group, "group");
        ears.listenTo(node, "node");
    }
    /// Everything that a node can hear of, in one go.
    void run()
    {
        const auto held = Vetra::MouseButton::LeftButton;
        for (const double x : {5.0, 6.0})
            give([x] { return mouseAt(x, 5); }, &Scene::handleMouseMoveEvent);
        give([held] { return mouseAt(5, 5, EventType::MousePressEvent, held); },
             &Scene::passMousePressEventToNode);
        give([held] { return mouseAt(6, 5, EventType::MouseMoveEvent, held); },
             &Scene::passMouseMoveEventToNode);
        give([] { return mouseAt(6, 5, EventType::MouseReleaseEvent); },
             &Scene::passMouseReleaseEventToNode);
        const auto key = [](EventType type) { return KeyEvent(type, nullptr, u"x"); };
        give([&] { return key(EventType::KeyPressEvent); }, &Scene::passKeyPressEventToNode);
        give([&] { return key(EventType::KeyReleaseEvent); }, &Scene::passKeyReleaseEventToNode);
        give([] { return FocusEvent(EventType::FocusOutEvent, Vetra::FocusReason::OtherReason); },
             &Scene::handleFocusOutEvent);
        give([] { return WidgetEvent(EventType::LeaveCanvasEvent); },
             &Scene::handleLeaveCanvasEvent);
    }

    Vetra::Holder<Scene> scene = Scene::createScene();
    ContainerNode group;
    RectNode node{{0, 0, 10, 10}};
    NodeEars ears;

private:
    template <class Make, class Operation>
    void give(const Make& make, Operation operation)
    {
        try {
            auto event = make();
            if (scene)
                (scene.get()->*operation)(event);
        } catch (const Thrown&) {
        }
    }
};

struct HostileAction {
    const char* name;
    void (*act)(World&);
};

void pressAgain(World& world)
{
    auto event = mouseAt(5, 5, EventType::MousePressEvent, Vetra::MouseButton::LeftButton);
    if (world.scene)
        world.scene->passMousePressEventToNode(event);
}

void leaveAndComeBack(World& world)
{
    for (const double x : {50.0, 5.0}) {
        auto event = mouseAt(x, 5);
        if (world.scene)
            world.scene->handleMouseMoveEvent(event);
    }
}

void dropAll(World& world)
{
    world.node.removeAndRelease();
    world.group.removeAndRelease();
    world.scene.reset();
}

void dropAllInALoop(World& world)
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, [&] {
        pressAgain(world);
        dropAll(world);
        loop.quit();
    });
    loop.exec();
}

const HostileAction actions[] = {
    {"RemovesTheNode", [](World& w) { w.node.remove(); }},
    {"DropsTheNode", [](World& w) { w.node.removeAndRelease(); }},
    {"DropsTheGroup", [](World& w) { w.group.removeAndRelease(); }},
    {"UnparentsTheNode", [](World& w) { w.node.unparent(); }},
    {"MovesTheNodeToAnotherScene", [](World& w) { Scene::createScene()->addNode(w.node); }},
    {"EmptiesTheScene", [](World& w) { w.scene->destroy(); }},
    {"DropsTheScene", [](World& w) { w.scene.reset(); }},
    {"DropsAll", dropAll},
    {"DropsAllInANestedLoop", dropAllInALoop},
    {"Disconnects", [](World& w) { w.ears.disconnectAll(); }},
    {"Throws", [](World&) { throw Thrown(); }},
    {"PressesAgain", pressAgain},
    {"MovesThePointer", leaveAndComeBack},
};

const char* const callbacks[] = {"enter",   "over", "focus",  "press",   "move",
                                 "release", "key",  "key up", "unfocus", "exit"};

class HostileEarsTest : public testing::TestWithParam<std::tuple<const char*, HostileAction>> {};

std::int64_t instances()
{
    return Host::DiagnosticsCounter::counter("Node:Node pool instance count").value();
}

TEST_P(HostileEarsTest, WhateverAListenerDoesTheNextEventWorks)
{
    const auto& [callback, action] = GetParam();
    const auto before = instances();
    for (const std::string name : {"node ", "group "}) {
        World world;
        bool isDone = false;
        // Once: pressing again inside a press would never end.
        world.ears.then = [&, act = action.act, entry = name + callback](const std::string& heard,
                                                                         Event&) {
            if (heard == entry && !std::exchange(isDone, true))
                act(world);
        };
        world.run();
        // The innermost listener takes the keyboard, so the group never has it.
        const bool isFocus = std::string(callback).ends_with("focus");
        EXPECT_EQ(isDone, name == "node " || !isFocus);
        if (!world.scene)
            continue;
        world.ears.taken();
        RectNode late({0, 0, 10, 10});
        world.scene->addNode(late);
        world.ears.listenTo(late, "late");
        pressAgain(world);
        EXPECT_EQ(world.ears.log.empty() ? "" : world.ears.log.back(), "late press");
    }
    EXPECT_EQ(instances(), before);
}

INSTANTIATE_TEST_SUITE_P(NodeEmitters, HostileEarsTest,
                         testing::Combine(testing::ValuesIn(callbacks), testing::ValuesIn(actions)),
                         [](const auto& row) {
                             std::string name = std::get<0>(row.param);
                             std::erase(name, ' ');
                             return name + std::get<1>(row.param).name;
                         });

} // namespace
