#include "events/nodeears.h"

#include "tova/events/widgetevent.h"
#include "tova/nodes/containernode.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"

#include <gmock/gmock.h>

namespace {

using namespace Tova2;
using testing::ElementsAre;
using testing::IsEmpty;
using Vetra::MouseButton;

/// "group" has the child "box" at (0, 0) to (10, 10), "other" lies at (5, 5) to (20, 20) on top.
class NodeDeliveryTest : public testing::Test {
protected:
    NodeDeliveryTest()
    {
        m_scene->addNode(m_group);
        m_box.setParent(m_group);
        m_scene->addNode(m_other);
        m_ears.listenTo(m_group, "group");
        m_ears.listenTo(m_box, "box");
        m_ears.listenTo(m_other, "other");
    }
    void move(double x, double y, Vetra::MouseButtons held = {})
    {
        auto event = mouseAt(x, y, EventType::MouseMoveEvent, held);
        m_scene->handleMouseMoveEvent(event);
    }
    void press(double x, double y)
    {
        auto event = mouseAt(x, y, EventType::MousePressEvent, MouseButton::LeftButton);
        m_scene->passMousePressEventToNode(event);
    }
    void passMove(double x, double y)
    {
        auto event = mouseAt(x, y);
        m_scene->passMouseMoveEventToNode(event);
    }
    void release(double x, double y)
    {
        auto event = mouseAt(x, y, EventType::MouseReleaseEvent);
        m_scene->passMouseReleaseEventToNode(event);
    }
    void type()
    {
        KeyEvent event(EventType::KeyPressEvent, nullptr, u"x");
        m_scene->passKeyPressEventToNode(event);
        KeyEvent up(EventType::KeyReleaseEvent, nullptr, u"x");
        m_scene->passKeyReleaseEventToNode(up);
    }
    void leave()
    {
        WidgetEvent event(EventType::LeaveCanvasEvent);
        m_scene->handleLeaveCanvasEvent(event);
    }

    Vetra::Holder<Scene> m_scene = Scene::createScene();
    ContainerNode m_group;
    RectNode m_box{{0, 0, 10, 10}};
    RectNode m_other{{5, 5, 15, 15}};
    NodeEars m_ears;
};

TEST_F(NodeDeliveryTest, HoverFollowsTheTopmostNodeWithItsAncestors)
{
    move(1, 1);
    EXPECT_THAT(m_ears.taken(), ElementsAre("group enter", "box enter"));
    move(2, 2);
    EXPECT_THAT(m_ears.taken(), ElementsAre("group over", "box over"));
    move(7, 7);
    EXPECT_THAT(m_ears.taken(), ElementsAre("box exit", "group exit", "other enter"));
    move(100, 100);
    EXPECT_THAT(m_ears.taken(), ElementsAre("other exit"));
    move(7, 7);
    leave();
    leave();
    EXPECT_THAT(m_ears.taken(), ElementsAre("other enter", "other exit"));
}

TEST_F(NodeDeliveryTest, HoverWaitsWhileAButtonIsHeld)
{
    move(1, 1);
    move(7, 7, MouseButton::LeftButton);
    EXPECT_THAT(m_ears.taken(), ElementsAre("group enter", "box enter"));
    move(7, 7);
    EXPECT_THAT(m_ears.taken(), ElementsAre("box exit", "group exit", "other enter"));
}

TEST_F(NodeDeliveryTest, NodeThatLeavesTheSceneIsToldItsExitOnceAndIsForgotten)
{
    move(1, 1);
    m_ears.taken();
    m_group.remove();
    EXPECT_THAT(m_ears.taken(), ElementsAre("box exit", "group exit"));
    move(1, 1);
    leave();
    EXPECT_THAT(m_ears.taken(), IsEmpty());
}

TEST_F(NodeDeliveryTest, PressedNodeHearsOfMovesAndTheReleaseWhereverTheyAre)
{
    press(1, 1);
    passMove(7, 7);
    release(100, 100);
    EXPECT_THAT(m_ears.taken(), ElementsAre("box focus", "box press", "group press", "box move",
                                            "group move", "box release", "group release"));
    passMove(7, 7);
    release(7, 7);
    EXPECT_THAT(m_ears.taken(), ElementsAre("other move", "other release"));
}

TEST_F(NodeDeliveryTest, LostReleaseDoesNotHoldTheNextPress)
{
    press(1, 1);
    press(7, 7);
    EXPECT_THAT(m_ears.taken(), ElementsAre("box focus", "box press", "group press", "box unfocus",
                                            "other focus", "other press"));
}

TEST_F(NodeDeliveryTest, ConsumingKeepsAncestorsFromHearing)
{
    m_ears.then = [](const std::string&, Event& event) { event.consume(); };
    press(1, 1);
    EXPECT_THAT(m_ears.taken(), ElementsAre("box focus", "box press"));
}

TEST_F(NodeDeliveryTest, KeysGoToTheNodePressedLast)
{
    type();
    EXPECT_THAT(m_ears.taken(), IsEmpty());
    press(7, 7);
    m_ears.taken();
    type();
    EXPECT_THAT(m_ears.taken(), ElementsAre("other key", "other key up"));
    m_other.remove();
    EXPECT_THAT(m_ears.taken(), ElementsAre("other unfocus"));
    type();
    EXPECT_THAT(m_ears.taken(), IsEmpty());
}

TEST_F(NodeDeliveryTest, FocusOfTheCanvasIsThatOfTheNodeAndToldOnce)
{
    press(7, 7);
    m_ears.taken();
    FocusEvent out(EventType::FocusOutEvent, Vetra::FocusReason::OtherReason);
    FocusEvent in(EventType::FocusInEvent, Vetra::FocusReason::OtherReason);
    m_scene->handleFocusInEvent(in);
    m_scene->handleFocusOutEvent(out);
    m_scene->handleFocusOutEvent(out);
    m_scene->handleFocusInEvent(in);
    EXPECT_THAT(m_ears.taken(), ElementsAre("other unfocus", "other focus"));
}

TEST_F(NodeDeliveryTest, TagsTellNodesApart)
{
    m_box.addTag("valve");
    press(1, 1);
    EXPECT_THAT(m_ears.taken(), ElementsAre("valve: box focus", "valve: box press", "group press"));
}

TEST_F(NodeDeliveryTest, DisconnectingByTheNodeEndsPressAndReleaseAlone)
{
    m_other.disconnectFromMousePressEmitter(&m_ears);
    m_other.disconnectFromMouseReleaseEmitter(&m_ears);
    press(7, 7);
    passMove(7, 7);
    release(7, 7);
    EXPECT_THAT(m_ears.taken(), ElementsAre("other focus", "other move"));
    RectNode silent;
    silent.disconnectFromMousePressEmitter(&m_ears);
}

TEST_F(NodeDeliveryTest, PointerMovedByAListenerIsWhereItWasMovedLast)
{
    m_ears.then = [this](const std::string& entry, Event&) {
        if (entry == "group enter")
            move(7, 7);
    };
    move(1, 1);
    EXPECT_THAT(m_ears.taken(), ElementsAre("group enter", "group exit", "other enter"));
}

} // namespace
