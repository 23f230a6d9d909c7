#include "support/rows.h"

#include "tova/events/focusevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/pangestureevent.h"
#include "tova/events/pinchgestureevent.h"
#include "tova/events/unconsumedeventtool.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"
#include "tova/widget/panzoomtool.h"
#include "tova/widget/scrollwheeltool.h"
#include "widgets/qt.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QTimer>

#include <cmath>
#include <functional>
#include <optional>
#include <random>
#include <utility>

namespace {

using namespace Tova2;
using Point = Vetra::GLPoint<double>;
using Vetra::CursorShape;
using Vetra::GestureState;
using Vetra::Key;
using Vetra::Modifier;
using Vetra::MouseButton;

/// A view of 400 by 300 pixels at scale 2, in the middle of a large scene.
class PanZoomToolTest : public testing::Test {
public:
    PanZoomToolTest()
    {
        m_scene->addNode(RectNode(Vetra::GLRect<double>{0, 0, 10000, 10000}));
        m_canvas->setSize({400, 300});
        m_canvas->setScene(m_scene.get());
        m_canvas->setScale(2);
        m_canvas->translateScenePointToViewPoint({5000, 5000}, {0, 0});
        m_tool = static_cast<PanZoomTool*>(m_scene->getToolByRole("PanZoomTool"));
    }
    ~PanZoomToolTest() override
    {
        if (m_canvas)
            m_canvas->destroy();
    }

    /// For so many steps of a glide.
    static void runFor(int steps)
    {
        QEventLoop loop;
        QTimer::singleShot(steps * MomentumController::DEFAULT_NOTIFICATION_INTERVAL_MILLISEC + 10,
                           &loop, &QEventLoop::quit);
        loop.exec();
    }
    /// How far the scene has been dragged, in pixels.
    Point dragged() const
    {
        const auto rect = m_canvas->getSceneRectInView();
        return {(5000 - rect.x) * 2, (5000 - rect.y) * 2};
    }
    void send(Event&& event) { event.accept(*m_scene); }
    void mouse(EventType type, int x, int y, MouseButton button = MouseButton::MidButton,
               Vetra::Modifiers held = {}, int delta = 0)
    {
        send(MouseEvent(type, {m_canvas, {x, y}, {x, y}, delta, button, button, held}));
    }
    void press(int x, int y, MouseButton button = MouseButton::MidButton)
    {
        mouse(EventType::MousePressEvent, x, y, button);
    }
    void move(int x, int y) { mouse(EventType::MouseMoveEvent, x, y); }
    void release(int x, int y, MouseButton button = MouseButton::MidButton)
    {
        mouse(EventType::MouseReleaseEvent, x, y, button);
    }
    void key(EventType type, Key code) { send(KeyEvent(type, m_canvas, code, {})); }
    void holdSpace() { key(EventType::KeyPressEvent, Key::Space); }
    void pan(GestureState state, Point delta)
    {
        send(PanGestureEvent(EventType::PanGestureEvent, m_canvas, Vetra::GestureType::Pan, state,
                             delta, 0));
    }
    void pinch(GestureState state, Point centre, double factor)
    {
        send(PinchGestureEvent(EventType::PinchGestureEvent, m_canvas, Vetra::GestureType::Pinch,
                               state, centre, factor, 0));
    }
    void loseFocus() { send(FocusEvent(EventType::FocusOutEvent, {m_canvas})); }

    void setInterval(double seconds)
    {
        m_scene->sendMessageToTools("TestFixedMomentumInterval", seconds);
    }
    void step() { m_scene->sendMessageToTools("TestMomentumUpdate", {}); }
    /// Down and to the right, and lets go in motion.
    void fling(MouseButton button = MouseButton::MidButton, double intervalOfGlide = 0.03)
    {
        setInterval(0.03);
        press(200, 150, button);
        move(300, 250);
        move(400, 350);
        setInterval(intervalOfGlide);
        release(400, 350, button);
    }

    Vetra::Holder<Scene> m_scene = Scene::createScene();
    GLCanvas* m_canvas = new GLCanvas("canvas");
    PanZoomTool* m_tool = nullptr;
};

TEST_F(PanZoomToolTest, TakesHoldOfTheViewByMiddleButtonOrSpaceBar)
{
    press(10, 10, MouseButton::LeftButton);
    move(20, 10);
    EXPECT_EQ(dragged(), Point(0, 0)) << "an idle tool leaves the left button alone";
    release(20, 10, MouseButton::LeftButton);

    press(10, 10);
    EXPECT_EQ(m_scene->getToolOverrideCursor(), CursorShape::ClosedHand);
    move(40, 5);
    EXPECT_EQ(dragged(), Point(30, -5));
    release(40, 5, MouseButton::LeftButton);
    EXPECT_TRUE(m_tool->isActive()) << "another button";
    release(40, 5);
    EXPECT_TRUE(m_tool->isIdle());
    EXPECT_FALSE(m_scene->hasToolOverrideCursor());

    holdSpace();
    EXPECT_EQ(m_scene->getToolOverrideCursor(), CursorShape::OpenHand);
    press(40, 5, MouseButton::LeftButton);
    move(10, 10);
    EXPECT_EQ(dragged(), Point(0, 0));
    release(10, 10, MouseButton::LeftButton);
    EXPECT_EQ(m_scene->getToolOverrideCursor(), CursorShape::OpenHand) << "still held";
    key(EventType::KeyReleaseEvent, Key::Space);
    EXPECT_TRUE(m_tool->isIdle());
}

TEST_F(PanZoomToolTest, GlidesOnUntilAPressButNotUntilACancel)
{
    setInterval(0.03);
    press(10, 10);
    release(10, 10);
    EXPECT_FALSE(m_canvas->movingWithMomentum()) << "nothing has moved";
    fling();
    m_scene->cancelAllTools();
    ASSERT_TRUE(m_canvas->movingWithMomentum());
    step();
    // 100 * sqrt(2) pixels in 0.03 s, twice, between two samples without a movement: on the average
    // half of that, of which a step begins with a twelfth.
    const double first = 100 / 0.03 / 2 / 12 * std::exp(-0.24);
    EXPECT_NEAR(dragged().x, 200 + first, 1e-3);
    EXPECT_NEAR(dragged().y, 200 + first, 1e-3);
    while (m_canvas->movingWithMomentum())
        step();
    EXPECT_NEAR(dragged().x, std::round(dragged().x), 1e-6) << "it stands as crisp as before";
    fling();
    press(10, 10, MouseButton::LeftButton);
    EXPECT_FALSE(m_canvas->movingWithMomentum());
    m_tool->setMiddleButtonGlides(false);
    fling();
    EXPECT_FALSE(m_canvas->movingWithMomentum());
    holdSpace();
    fling(MouseButton::LeftButton);
    EXPECT_TRUE(m_canvas->movingWithMomentum());
    key(EventType::KeyReleaseEvent, Key::Space);
    EXPECT_FALSE(m_canvas->movingWithMomentum());
}

TEST_F(PanZoomToolTest, LosesSpeedAtALimitForEachAxis)
{
    const auto stepsFrom = [this](Point corner) {
        m_canvas->translateScenePointToViewPoint(corner, {200, 150}); // the limit of the middle
        fling();
        int steps = 0;
        while (m_canvas->movingWithMomentum() && ++steps < 100)
            step();
        return steps;
    };
    // 196 a step * e^(-0.24 n) * slowing^(n - 1) stays above 2 ...
    EXPECT_EQ(stepsFrom({5000, 5000}), 20); // without a limit
    EXPECT_EQ(stepsFrom({0, 5000}), 7);     // by 0.6
    EXPECT_EQ(stepsFrom({0, 0}), 5);        // by 0.36
}

TEST_F(PanZoomToolTest, APinchKeepsThePointBetweenTheFingers)
{
    const Point centre{123, 217};
    const Point before = m_canvas->viewPointToScenePoint(centre);
    pinch(GestureState::GestureStarted, centre, 1);
    EXPECT_EQ(m_scene->getToolOverrideCursor(), CursorShape::Blank);
    for (int i = 0; i < 200; ++i)
        pinch(GestureState::GestureUpdated, centre, i % 3 ? 1.013 : 0.98);
    for (const double factor : {0.0, -1.0, std::nan(""), HUGE_VAL})
        pinch(GestureState::GestureUpdated, centre, factor);
    pinch(GestureState::GestureFinished, centre, 1);
    EXPECT_TRUE(m_tool->isIdle());
    EXPECT_NEAR(m_canvas->getScale(), 2 * std::pow(1.013, 133) * std::pow(0.98, 67), 1e-9);
    const Point after = m_canvas->scenePointToViewPoint(before);
    EXPECT_LT(std::hypot(after.x - centre.x, after.y - centre.y), 0.01);
}

TEST_F(PanZoomToolTest, FingersDragAndFling)
{
    setInterval(0.03);
    pan(GestureState::GestureUpdated, {1.5, 0});
    EXPECT_TRUE(m_tool->isIdle()) << "its end may never come";
    pan(GestureState::GestureStarted, {});
    pan(GestureState::GestureUpdated, {60, 0.5});
    EXPECT_EQ(dragged(), Point(61.5, 0.5));
    pan(GestureState::GestureFinished, {});
    EXPECT_TRUE(m_tool->isIdle());
    EXPECT_TRUE(m_canvas->movingWithMomentum());
}

// Ends

struct EndCase : NamedRow {
    std::function<void(PanZoomToolTest&)> end;
};

class GlideEndTest : public PanZoomToolTest, public testing::WithParamInterface<EndCase> {};

TEST_P(GlideEndTest, NoStepComesAfterTheEndOfItsOwner)
{
    const Vetra::Holder<Tool> kept(m_tool); // so that a late step would find it
    fling(MouseButton::MidButton, 0);       // by a timer
    ASSERT_TRUE(m_canvas->movingWithMomentum());
    GetParam().end(*this);
    int steps = 0;
    if (m_canvas) {
        EXPECT_FALSE(m_canvas->movingWithMomentum());
        m_canvas->connectTo(&GLCanvasEmitters::viewChange, [&](Point) { ++steps; });
    }
    runFor(2);
    EXPECT_EQ(steps, 0);
}

INSTANTIATE_TEST_SUITE_P(
    PanZoomTool, GlideEndTest,
    testing::Values(
        EndCase{{"Removed"}, [](auto& test) { test.m_scene->removeTool(test.m_tool); }},
        EndCase{{"RemovedByRole"},
                [](auto& test) { test.m_scene->removeToolByRole("PanZoomTool"); }},
        EndCase{{"Replaced"}, [](auto& test) { test.m_scene->addTool(new PanZoomTool); }},
        EndCase{{"StackCleared"}, [](auto& test) { test.m_scene->clearToolStack(); }},
        EndCase{{"Done"},
                [](auto& test) { test.m_tool->becomeDone(), test.m_scene->cancelAllTools(); }},
        EndCase{{"NoScene"}, [](auto& test) { test.m_canvas->setScene(nullptr); }},
        EndCase{{"AnotherScene"},
                [](auto& test) { test.m_canvas->setScene(Scene::createScene().get()); }},
        EndCase{{"SceneDestroyed"},
                [](auto& test) { test.m_canvas->setScene(nullptr), test.m_scene = {}; }},
        EndCase{{"CanvasDestroyed"},
                [](auto& test) { std::exchange(test.m_canvas, nullptr)->destroy(); }},
        EndCase{{"CanvasDisabled"},
                [](auto& test) { test.m_canvas->setEnabled(false), test.runFor(1); }},
        EndCase{{"AnotherToolBegan"},
                [](auto& test) {
                    test.m_scene->getToolByRole("ToolTipTool")->becomeAlert(), test.runFor(1);
                }}),
    rowName);

TEST_F(PanZoomToolTest, LosingTheFocusEndsWhatTheHandDoes)
{
    std::mt19937 random(7);
    const std::function<void()> inputs[] = {
        [&] { press(50, 50); },
        [&] { press(50, 50, MouseButton::LeftButton); },
        [&] { mouse(EventType::MouseDoubleClickEvent, 50, 50); },
        [&] { move(int(random() % 400), int(random() % 300)); },
        [&] { release(60, 60); },
        [&] { release(60, 60, MouseButton::LeftButton); },
        [&] { holdSpace(); },
        [&] { key(EventType::KeyReleaseEvent, Key::Space); },
        [&] { key(EventType::KeyPressEvent, Key::Escape); },
        [&] {
            pan(GestureState(random() % 5), {3, -2});
        },
        [&] {
            pinch(GestureState(random() % 5), {9, 9}, 1.01);
        },
    };
    for (int i = 0; i < 2000; ++i) {
        inputs[random() % std::size(inputs)]();
        ASSERT_EQ(m_tool->isIdle(), !m_scene->hasToolOverrideCursor()) << i;
        if (random() % 8 == 0) {
            loseFocus();
            ASSERT_TRUE(m_tool->isIdle()) << i;
        }
    }
}

// Wheel

struct ScrollFirstTool : ScrollWheelTool {
    bool shouldZoomPrimarily() override { return false; }
};

struct WheelCase : NamedRow {
    bool zoomsPrimarily;
    Vetra::Modifiers held;
    int delta;
    double scale;                             ///< then
    std::optional<Vetra::GLPoint<int>> steps; ///< asked for
};

class ScrollWheelToolTest : public PanZoomToolTest,
                            public testing::WithParamInterface<WheelCase> {};

TEST_P(ScrollWheelToolTest, ZoomsOrScrollsByWhatIsHeld)
{
    if (!GetParam().zoomsPrimarily)
        m_scene->addTool(new ScrollFirstTool);
    std::optional<Vetra::GLPoint<int>> steps;
    m_canvas->connectTo(&GLCanvasEmitters::scrollRequest, [&](int dx, int dy) {
        steps = {dx, dy};
    });
    const Point under = m_canvas->viewPointToScenePoint({77, 33});
    mouse(EventType::WheelEvent, 77, 33, MouseButton::NoButton, GetParam().held, GetParam().delta);
    EXPECT_EQ(m_canvas->getScale(), GetParam().scale);
    EXPECT_EQ(steps, GetParam().steps);
    if (!steps) {
        const Point after = m_canvas->scenePointToViewPoint(under);
        EXPECT_LT(std::hypot(after.x - 77, after.y - 33), 0.01);
    }
}

INSTANTIATE_TEST_SUITE_P(
    Modifiers, ScrollWheelToolTest,
    testing::Values(WheelCase{{"In"}, true, {}, 120, 2.5, {}},
                    WheelCase{{"Out"}, true, {}, -120, 1.75, {}},
                    WheelCase{{"Sideways"}, true, Modifier::Shift, 120, 2, {{-17, 0}}},
                    WheelCase{{"Down"}, true, Modifier::Ctrl, -120, 2, {{0, 17}}},
                    WheelCase{{"TwoModifiers"}, true, Modifier::Shift | Modifier::Ctrl, 120, 2, {}},
                    WheelCase{{"Alt"}, true, Modifier::Alt, 120, 2, {}},
                    WheelCase{{"NoTurn"}, true, {}, 0, 2, {}},
                    WheelCase{{"ScrollFirst"}, false, {}, 13, 2, {{0, -1}}},
                    WheelCase{{"ScrollFirstSideways"}, false, Modifier::Shift, -14, 2, {{2, 0}}},
                    WheelCase{{"ScrollFirstZooms"}, false, Modifier::Ctrl, 120, 2.5, {}}),
    rowName);

// Keys that no tool takes, as they come from the toolkit

struct KeyCase : NamedRow {
    int key;
    Qt::KeyboardModifiers held;
    double scale; ///< then
    Point way;    ///< dragged, in pixels
};

class ViewKeysTest : public PanZoomToolTest, public testing::WithParamInterface<KeyCase> {
public:
    /// Whether it has been taken.
    bool press()
    {
        QKeyEvent event(QEvent::KeyPress, GetParam().key, GetParam().held);
        QCoreApplication::sendEvent(Widgets::toQt(*m_canvas), &event);
        return event.isAccepted();
    }
};

TEST_P(ViewKeysTest, MoveTheViewUnlessAListenerWantsThem)
{
    const bool isTaken = GetParam().scale != 2 || GetParam().way != Point();
    EXPECT_EQ(press(), isTaken);
    EXPECT_NEAR(m_canvas->getScale(), GetParam().scale, 1e-4);
    if (m_canvas->getScale() == 2) {
        EXPECT_NEAR(dragged().x, GetParam().way.x, 1e-9);
        EXPECT_NEAR(dragged().y, GetParam().way.y, 1e-9);
    }
    auto* const last =
        static_cast<UnconsumedEventTool*>(m_scene->getToolByRole("UnconsumedEventTool"));
    last->unconsumedEmitter().connect([](Event& event) { event.consume(); });
    const auto shown = m_canvas->getSceneRectInView();
    EXPECT_TRUE(press());
    EXPECT_EQ(m_canvas->getSceneRectInView(), shown);
}

INSTANTIATE_TEST_SUITE_P(
    Keys, ViewKeysTest,
    testing::Values(KeyCase{{"Left"}, Qt::Key_Left, Qt::KeypadModifier, 2, {20, 0}},
                    KeyCase{{"Down"}, Qt::Key_Down, {}, 2, {0, -15}},
                    KeyCase{{"PageDown"}, Qt::Key_PageDown, {}, 2, {0, -270}},
                    KeyCase{{"PageLeft"}, Qt::Key_PageUp, Qt::ShiftModifier, 2, {360, 0}},
                    KeyCase{{"Home"}, Qt::Key_Home, {}, 2, {10001, 10001}},
                    KeyCase{{"End"}, Qt::Key_End, {}, 2, {-9601, -9701}},
                    KeyCase{{"Plus"}, Qt::Key_Plus, Qt::ShiftModifier, 2.5, {}},
                    KeyCase{{"Minus"}, Qt::Key_Minus, Qt::ControlModifier, 1.75, {}},
                    KeyCase{{"ActualSize"}, Qt::Key_0, {}, 1, {}},
                    KeyCase{{"Fit"}, Qt::Key_F, {}, 300 / 10001.0, {}},
                    KeyCase{{"FindIsTheHosts"}, Qt::Key_F, Qt::ControlModifier, 2, {}},
                    KeyCase{{"BackIsTheHosts"}, Qt::Key_Left, Qt::AltModifier, 2, {}}),
    rowName);

} // namespace
