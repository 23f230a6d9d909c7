#include "support/rows.h"

#include "tova/events/event.h"
#include "tova/events/eventtestdriver.h"
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
#include <QImage>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPixmap>
#include <QScrollBar>
#include <QTimer>

#include <cmath>
#include <functional>
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
        scene->addNode(RectNode(Vetra::GLRect<double>{0, 0, 10000, 10000}));
        canvas->setSize({400, 300});
        canvas->setScene(scene.get());
        canvas->showScenePointAtViewPointAtScale({5000, 5000}, {0, 0}, 2);
        tool = static_cast<PanZoomTool*>(scene->getToolByRole("PanZoomTool"));
    }
    ~PanZoomToolTest() override
    {
        if (canvas)
            canvas->destroy();
    }

    /// How far the scene has been dragged, in pixels at scale 2.
    Point dragged() const
    {
        const auto rect = canvas->getSceneRectInView();
        return {(5000 - rect.x) * 2, (5000 - rect.y) * 2};
    }
    /// With the pointer at (200, 150) of the view, to begin with.
    void drag(double dx, double dy, MouseButton button = MouseButton::MidButton)
    {
        const Point from = canvas->viewPointToScenePoint({200, 150});
        user.drag(from, from + Point{dx / 2, dy / 2}, 2, button);
    }
    void wheel(int delta, Vetra::Modifiers held = {})
    {
        user.setModifiers(held);
        user.wheel(canvas->viewPointToScenePoint({0, 0}), delta);
    }
    /// As it comes from the toolkit. Whether it has been taken.
    bool type(int code, Qt::KeyboardModifiers held = {})
    {
        QKeyEvent event(QEvent::KeyPress, code, held);
        QCoreApplication::sendEvent(Widgets::toQt(*canvas), &event);
        return event.isAccepted();
    }
    void useInterval(double s) { scene->sendMessageToTools("TestFixedMomentumInterval", s); }
    void step() { scene->sendMessageToTools("TestMomentumUpdate", {}); }

    Vetra::Holder<Scene> scene = Scene::createScene();
    GLCanvas* canvas = new GLCanvas("canvas");
    PanZoomTool* tool = nullptr;
    EventTestDriver user{*scene, canvas};
};

// What moves the view, and how far

struct InputCase : NamedRow {
    struct {
        double scale;
        Point way; ///< dragged, in pixels
    } then;
    std::function<void(PanZoomToolTest&)> input;
};

class ViewInputTest : public PanZoomToolTest, public testing::WithParamInterface<InputCase> {};

TEST_P(ViewInputTest, MovesTheView)
{
    const auto& [scale, way] = GetParam().then;
    GetParam().input(*this);
    EXPECT_NEAR(canvas->getScale(), scale, 1e-9);
    EXPECT_NEAR(dragged().x, way.x, 1e-9);
    EXPECT_NEAR(dragged().y, way.y, 1e-9);
    EXPECT_TRUE(tool->isIdle());
}

struct ScrollFirstTool : ScrollWheelTool {
    bool shouldZoomPrimarily() override { return false; }
};
using Test = PanZoomToolTest;
constexpr auto kShiftCtrl = Modifier::Shift | Modifier::Ctrl;

INSTANTIATE_TEST_SUITE_P(
    PanZoomTool, ViewInputTest,
    testing::Values(
        InputCase{{"MiddleButton"}, {2, {30, -8}}, [](Test& on) { on.drag(30, -8); }},
        InputCase{{"LeftButtonIsNotOurs"},
                  {2, {}},
                  [](Test& on) { on.drag(30, -8, MouseButton::LeftButton); }},
        InputCase{{"SpaceBarAndLeftButton"},
                  {2, {30, -8}},
                  [](Test& on) {
                      on.user.pressKey(Key::Space);
                      on.drag(30, -8, MouseButton::LeftButton);
                      on.user.releaseKey(Key::Space);
                  }},
        InputCase{{"ABarHeldThroughEscapeHoldsNothing"},
                  {2, {30, -8}},
                  [](Test& on) {
                      on.user.pressKey(Key::Space);
                      on.user.typeKey(Key::Escape);
                      on.drag(30, -8);
                  }},
        InputCase{{"KeysDuringAPan"},
                  {2, {-20, 0}},
                  [](Test& on) {
                      on.user.pressKey(Key::Space);
                      on.user.pressKey(Key::Right);
                      on.user.releaseKey(Key::Space);
                  }},
        InputCase{{"FingersWhoseGestureMayNeverEnd"},
                  {2, {3, 0}}, // what is less than a pixel waits for more of it
                  [](Test& on) {
                      on.user.pan(GestureState::GestureUpdated, {std::nan(""), 1e300});
                      on.canvas->translateScenePointToViewPoint({5000, 5000}, {0, 0});
                      on.user.pan(GestureState::GestureUpdated, {1.4, 0});
                      on.user.pan(GestureState::GestureUpdated, {1.4, 0});
                  }},
        InputCase{{"WheelAboutThePointer"}, {2.5, {}}, [](Test& on) { on.wheel(120); }},
        InputCase{{"ShiftWheel"}, {2, {57, 0}}, [](Test& on) { on.wheel(120, Modifier::Shift); }},
        InputCase{{"CtrlWheel"}, {2, {0, -43}}, [](Test& on) { on.wheel(-120, Modifier::Ctrl); }},
        InputCase{{"ShiftCtrlWheel"}, {2, {}}, [](Test& on) { on.wheel(120, kShiftCtrl); }},
        InputCase{{"WheelThatScrollsFirst"},
                  {2, {0, 3}},
                  [](Test& on) {
                      on.scene->addTool(new ScrollFirstTool);
                      on.wheel(13);
                      on.wheel(120, Modifier::Ctrl);
                      on.wheel(-120, Modifier::Ctrl);
                  }},
        InputCase{
            {"Left"}, {2, {20, 0}}, [](Test& on) { on.type(Qt::Key_Left, Qt::KeypadModifier); }},
        InputCase{{"PageLeft"},
                  {2, {360, 0}},
                  [](Test& on) { on.type(Qt::Key_PageUp, Qt::ShiftModifier); }},
        InputCase{{"End"}, {2, {-9601, -9701}}, [](Test& on) { on.type(Qt::Key_End); }},
        InputCase{{"Plus"},
                  {2.5, {-40, -30}},
                  [](Test& on) { on.type(Qt::Key_Plus, Qt::ShiftModifier); }},
        InputCase{{"BackIsTheHosts"},
                  {2, {}},
                  [](Test& on) { EXPECT_FALSE(on.type(Qt::Key_Left, Qt::AltModifier)); }},
        InputCase{{"WhatAListenerTakes"},
                  {2, {}},
                  [](Test& on) {
                      auto* const last = on.scene->getToolByRole("UnconsumedEventTool");
                      static_cast<UnconsumedEventTool*>(last)->unconsumedEmitter().connect(
                          [](Event& event) { event.consume(); });
                      on.type(Qt::Key_Left);
                  }}),
    rowName);

TEST_F(PanZoomToolTest, TheCursorTellsWhatTheHandDoes)
{
    const auto cursor = [this] { return scene->getToolOverrideCursor().shape(); };
    user.pressKey(Key::Space);
    EXPECT_EQ(cursor(), CursorShape::OpenHand);
    user.press();
    EXPECT_EQ(cursor(), CursorShape::ClosedHand);
    user.pinch(GestureState::GestureStarted, Point(), 1);
    EXPECT_EQ(cursor(), CursorShape::Blank);
    user.pinch(GestureState::GestureFinished, Point(), 1);
    user.release();
    EXPECT_EQ(cursor(), CursorShape::OpenHand);
    user.releaseKey(Key::Space);
    EXPECT_FALSE(scene->hasToolOverrideCursor());
}

TEST_F(PanZoomToolTest, APinchKeepsThePointBetweenTheFingers)
{
    const Point centre{123, 217};
    const Point before = canvas->viewPointToScenePoint(centre);
    user.pinch(GestureState::GestureStarted, before, 1);
    for (int i = 0; i < 200; ++i)
        user.pinch(GestureState::GestureUpdated, before, i % 3 ? 1.013 : 0.98);
    for (const double factor : {0.0, -1.0, std::nan(""), HUGE_VAL})
        user.pinch(GestureState::GestureUpdated, before, factor);
    EXPECT_NEAR(canvas->getScale(), 2 * std::pow(1.013, 133) * std::pow(0.98, 67), 1e-9);
    const Point after = canvas->scenePointToViewPoint(before);
    EXPECT_LT(std::hypot(after.x - centre.x, after.y - centre.y), 0.01);
}

TEST_F(PanZoomToolTest, AHostMayHoldTheViewAgainstAllThatTheUserDoes)
{
    canvas->connectTo(&GLCanvasEmitters::userMoveQuery, [](bool& mayMove) { mayMove = false; });
    drag(30, -8);
    user.pan(GestureState::GestureUpdated, {3, 4});
    user.pinch(GestureState::GestureUpdated, Point{5000, 5000}, 1.5);
    wheel(120);
    wheel(120, Modifier::Ctrl);
    for (const int key : {Qt::Key_F, Qt::Key_End, Qt::Key_0, Qt::Key_Plus, Qt::Key_PageUp})
        EXPECT_FALSE(type(key));
    auto* const bar = toQt(*canvas)->findChild<QScrollBar*>();
    const int before = bar->value();
    bar->triggerAction(QScrollBar::SliderPageStepAdd);
    EXPECT_EQ(bar->value(), before);
    EXPECT_EQ(canvas->getScale(), 2);
    EXPECT_EQ(dragged(), Point());
}

TEST_F(PanZoomToolTest, WhatFollowsTheHandIsCopied)
{
    const auto middle = [this] {
        return toQt(*canvas)->grab({200, 150, 1, 1}).toImage().pixelColor(0, 0);
    };
    scene->setDebugRepaintRegionColor(Vetra::Color(1, 0, 0));
    scene->setDebugRepaintRegion(true);
    ASSERT_EQ(middle(), QColor(Qt::red));
    scene->setDebugRepaintRegionColor(Vetra::Color(0, 0, 1));
    drag(33, 7);
    user.pan(GestureState::GestureStarted, {});
    for (int i = 0; i < 5; ++i)
        user.pan(GestureState::GestureUpdated, {1.4, 0.3});
    EXPECT_EQ(middle(), QColor(Qt::red)) << "painted anew";
}

// Gliding

TEST_F(PanZoomToolTest, GlidesOnUntilAPressButNotUntilACancel)
{
    useInterval(0.03);
    drag(0, 0);
    EXPECT_FALSE(canvas->movingWithMomentum()) << "nothing has moved";
    drag(200, 200);
    scene->cancelAllTools();
    step();
    // 100 * sqrt(2) pixels in 0.03 s, twice, between two samples without a movement: on the average
    // half of that, of which a step begins with a twelfth.
    const double first = 100 / 0.03 / 2 / 12 * std::exp(-0.24);
    EXPECT_NEAR(dragged().x, 200 + first, 1e-3);
    user.press();
    EXPECT_FALSE(canvas->movingWithMomentum());
    tool->setMiddleButtonGlides(false);
    drag(200, 200);
    EXPECT_FALSE(canvas->movingWithMomentum());
    user.pan(GestureState::GestureStarted, {});
    user.pan(GestureState::GestureUpdated, {60, 0.5});
    user.pan(GestureState::GestureFinished, {});
    EXPECT_TRUE(canvas->movingWithMomentum());
}

TEST_F(PanZoomToolTest, LosesSpeedAtALimitForEachAxisAndStandsOnWholePixels)
{
    useInterval(0.03);
    const auto stepsFrom = [this](Point corner) {
        canvas->translateScenePointToViewPoint(corner, {360, 270}); // a tenth still shows it
        drag(200, 200);
        int steps = 0;
        while (canvas->movingWithMomentum() && ++steps < 100)
            step();
        return steps;
    };
    // 196 a step * e^(-0.24 n) * slowing^(n - 1) stays above 2 ...
    EXPECT_EQ(stepsFrom({5000, 5000}), 20); // without a limit
    EXPECT_NEAR(dragged().y, std::round(dragged().y), 1e-6);
    EXPECT_EQ(stepsFrom({0, 5000}), 7); // by 0.6
    EXPECT_EQ(stepsFrom({0, 0}), 5);    // by 0.36
}

// Ends

struct EndCase : NamedRow {
    std::function<void(PanZoomToolTest&)> end;
};

class GlideEndTest : public PanZoomToolTest, public testing::WithParamInterface<EndCase> {};

TEST_P(GlideEndTest, NoStepComesAfterTheEndOfItsOwner)
{
    const Vetra::Holder<Tool> kept(tool); // so that a late step would find it
    useInterval(0.03);
    user.press(MouseButton::MidButton);
    user.moveTo(canvas->viewPointToScenePoint({200, 200}));
    useInterval(0); // by a timer
    user.release(MouseButton::MidButton);
    ASSERT_TRUE(canvas->movingWithMomentum());
    GetParam().end(*this);
    int steps = 0;
    if (canvas)
        canvas->connectTo(&GLCanvasEmitters::viewChange, [&](Point) { ++steps; });
    QEventLoop loop;
    QTimer::singleShot(70, &loop, &QEventLoop::quit); // two steps
    loop.exec();
    EXPECT_EQ(steps, 0);
    EXPECT_FALSE(canvas && canvas->movingWithMomentum());
}

INSTANTIATE_TEST_SUITE_P(
    PanZoomTool, GlideEndTest,
    testing::Values(
        EndCase{{"Removed"}, [](Test& on) { on.scene->removeTool(on.tool); }},
        EndCase{{"Replaced"}, [](Test& on) { on.scene->addTool(new PanZoomTool); }},
        EndCase{{"StackCleared"}, [](Test& on) { on.scene->clearToolStack(); }},
        EndCase{{"Done"}, [](Test& on) { on.tool->becomeDone(), on.scene->cancelAllTools(); }},
        EndCase{{"NoScene"}, [](Test& on) { on.canvas->setScene(nullptr); }},
        EndCase{{"AnotherScene"},
                [](Test& on) { on.canvas->setScene(Scene::createScene().get()); }},
        EndCase{{"SceneDestroyed"}, [](Test& on) { on.canvas->setScene(nullptr), on.scene = {}; }},
        EndCase{{"CanvasDestroyed"},
                [](Test& on) { std::exchange(on.canvas, nullptr)->destroy(); }},
        EndCase{{"CanvasDisabled"}, [](Test& on) { on.canvas->setEnabled(false); }},
        EndCase{{"AnotherToolBegins"},
                [](Test& on) { on.scene->getToolByRole("ToolTipTool")->becomeAlert(); }},
        EndCase{{"UserZooms"}, [](Test& on) { on.wheel(120); }},
        EndCase{{"HostFits"}, [](Test& on) { on.canvas->zoomToSceneRect(); }},
        EndCase{{"PageKey"}, [](Test& on) { on.type(Qt::Key_PageDown); }},
        EndCase{{"PressThatAToolAboveTakes"},
                [](Test& on) {
                    auto* const above = new UnconsumedEventTool;
                    above->unconsumedEmitter().connect([](Event& event) { event.consume(); });
                    on.scene->addTool(above, "Above");
                    QMouseEvent press(QEvent::MouseButtonPress, {5, 5}, Qt::RightButton,
                                      Qt::RightButton, {});
                    QCoreApplication::sendEvent(Widgets::toQt(*on.canvas), &press);
                }},
        EndCase{{"ScrollbarHeld"},
                [](Test& on) { toQt(*on.canvas)->findChild<QScrollBar*>()->setSliderDown(true); }}),
    rowName);

TEST_F(PanZoomToolTest, LosingTheFocusEndsWhatTheHandDoes)
{
    std::mt19937 random(7);
    const auto any = [&] {
        return random() % 2 ? MouseButton::MidButton : MouseButton::LeftButton;
    };
    const std::function<void()> inputs[] = {
        [&] { user.press(any()); },
        [&] {
            user.doubleClick(Point{5000, 5000}, any());
        },
        [&] {
            user.moveTo(Point{5000.0 + int(random() % 400), 5050});
        },
        [&] { user.release(any()); },
        [&] { user.pressKey(Key::Space); },
        [&] { user.releaseKey(Key::Space); },
        [&] { user.typeKey(Key::Escape); },
        [&] {
            user.pan(GestureState(random() % 5), {3, -2});
        },
        [&] { user.pinch(GestureState(random() % 5), Point(), 1.01); },
    };
    for (int i = 0; i < 2000; ++i) {
        inputs[random() % std::size(inputs)]();
        ASSERT_EQ(tool->isIdle(), !scene->hasToolOverrideCursor()) << i;
        if (random() % 8 == 0) {
            user.focusOut();
            ASSERT_TRUE(tool->isIdle()) << i;
        }
    }
}

} // namespace
