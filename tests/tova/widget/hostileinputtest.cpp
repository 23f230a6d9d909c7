// Every kind of input, answered by something drastic.
#include "support/rows.h"
#include "widget/touches.h"

#include "tova/events/event.h"
#include "tova/events/unconsumedeventtool.h"
#include "tova/scene/scene.h"
#include "tova/widget/glcanvas.h"
#include "vetra/errorreporter.h"
#include "widgets/qt.h"

#include <QApplication>
#include <QMimeData>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPointer>
#include <QTimer>

#include <functional>
#include <set>
#include <stdexcept>

namespace Tova2 {

namespace {

/// A canvas whose handler does something drastic when it first hears of one type of event.
struct Stage {
    Stage()
    {
        canvas->setScene(scene.get());
        widget->resize(200, 100);
        for (const char* const role : {"PanZoomTool", "ScrollWheelTool"})
            scene->removeToolByRole(role);
        auto* const rest = scene->getToolByRole("UnconsumedEventTool");
        static_cast<UnconsumedEventTool*>(rest)->unconsumedEmitter().connect([this](Event& event) {
            heard.insert(event.type());
            if (event.type() == trigger)
                std::exchange(action, [](Stage&) {})(*this);
        });
        Vetra::setErrorReporter([this](std::exception_ptr) { ++reported; });
    }
    ~Stage()
    {
        if (isCanvasAlive)
            canvas->destroy();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Vetra::setErrorReporter({});
    }

    template <class E>
    void send(E&& event)
    {
        if (widget)
            QCoreApplication::sendEvent(widget, &event);
    }
    void mouse(QEvent::Type type, double x, Qt::MouseButton button, Qt::MouseButtons held)
    {
        send(QMouseEvent(type, {x, 50}, {x, 50}, button, held, {}));
    }
    void scroll(Qt::ScrollPhase phase, int angle, Qt::KeyboardModifiers modifiers = {})
    {
        send(QWheelEvent({20, 40}, {20, 40}, {}, {0, angle}, {}, modifiers, phase, false));
    }
    void playAll();
    void playDrag();

    GLCanvas* canvas = new GLCanvas(Vetra::StringID("canvas"));
    bool isCanvasAlive = true;
    QPointer<QWidget> widget = Widgets::toQt(*canvas);
    Vetra::Holder<Scene> scene = Scene::createScene();
    EventType trigger = EventType::NullEvent;
    std::function<void(Stage&)> action = [](Stage&) {};
    std::set<EventType> heard;
    int reported = 0;
};

void Stage::playDrag()
{
    QMimeData data;
    data.setText(QStringLiteral("text"));
    send(QDragEnterEvent({20, 40}, Qt::CopyAction, &data, {}, {}));
    send(QDragMoveEvent({30, 40}, Qt::CopyAction, &data, {}, {}));
    send(QDropEvent({30, 40}, Qt::CopyAction, &data, {}, {}));
    send(QDragEnterEvent({20, 40}, Qt::CopyAction, &data, {}, {}));
    send(QDragLeaveEvent());
}

void Stage::playAll()
{
    send(QEnterEvent({1, 1}, {1, 1}, {1, 1}));
    send(QFocusEvent(QEvent::FocusIn));
    mouse(QEvent::MouseMove, 10, Qt::NoButton, {});
    mouse(QEvent::MouseButtonPress, 10, Qt::LeftButton, Qt::LeftButton);
    mouse(QEvent::MouseMove, 60, Qt::NoButton, Qt::LeftButton);
    mouse(QEvent::MouseButtonRelease, 60, Qt::LeftButton, {});
    mouse(QEvent::MouseButtonDblClick, 60, Qt::LeftButton, Qt::LeftButton);
    send(QContextMenuEvent(QContextMenuEvent::Keyboard, {20, 40}, {20, 40}));
    scroll(Qt::NoScrollPhase, 360);
    for (const auto modifiers : {Qt::NoModifier, Qt::ControlModifier}) {
        scroll(Qt::ScrollBegin, 8, modifiers);
        scroll(Qt::ScrollEnd, 0, modifiers);
    }
    send(touch(QEvent::TouchBegin, {{1, {10, 10}, Qt::TouchPointPressed}}));
    send(touch(QEvent::TouchUpdate,
               {{1, {10, 10}, Qt::TouchPointStationary}, {2, {50, 50}, Qt::TouchPointPressed}}));
    send(touch(QEvent::TouchEnd,
               {{1, {10, 10}, Qt::TouchPointReleased}, {2, {50, 50}, Qt::TouchPointReleased}}));
    send(QKeyEvent(QEvent::KeyPress, Qt::Key_A, {}));
    send(QKeyEvent(QEvent::KeyRelease, Qt::Key_A, {}));
    send(QInputMethodEvent(QStringLiteral("x"), {}));
    playDrag();
    send(QFocusEvent(QEvent::FocusOut));
    send(QEvent(QEvent::Leave));
}

struct HostileRow : NamedRow {
    std::function<void(Stage&)> act;
    int reports;
};

class HostileInputTest : public testing::TestWithParam<HostileRow> {};

TEST_P(HostileInputTest, MayComeAtAnyEvent)
{
    Stage plain;
    plain.playAll();
    EXPECT_EQ(plain.heard.size(), 20U); // all but the hover, which nodes hear of
    for (const EventType trigger : plain.heard) {
        SCOPED_TRACE(nameOf(trigger));
        Stage stage;
        stage.trigger = trigger;
        stage.action = GetParam().act;
        stage.playAll();
        EXPECT_TRUE(stage.heard.contains(trigger));
        EXPECT_EQ(stage.reported, GetParam().reports);
        EXPECT_FALSE(stage.scene->hasActiveOrAlertTool());
        stage.heard.clear();
        stage.playAll();
        EXPECT_EQ(stage.heard.empty(), !stage.isCanvasAlive || !stage.canvas->getScene());
    }
}

void destroyCanvas(Stage& stage)
{
    stage.isCanvasAlive = false;
    stage.canvas->destroy();
}

const HostileRow kRows[]{
    {{"DestroysTheCanvas"}, destroyCanvas, 0},
    {{"DeletesTheToolkitsWidget"},
     [](Stage& stage) {
         delete stage.widget;
         destroyCanvas(stage);
     },
     0},
    {{"TakesTheSceneAway"}, [](Stage& stage) { stage.canvas->setScene(nullptr); }, 0},
    {{"EmptiesTheScene"},
     [](Stage& stage) {
         stage.canvas->setScene(nullptr);
         stage.scene->destroy();
     },
     0},
    {{"Throws"}, [](Stage&) { throw std::runtime_error("handler"); }, 1},
    {{"HasItsOwnEventLoopInWhichMoreComesInAndTheCanvasEnds"},
     [](Stage& stage) {
         QEventLoop loop;
         QTimer::singleShot(0, &loop, [&] {
             stage.playAll();
             destroyCanvas(stage);
             loop.quit();
         });
         loop.exec();
     },
     0},
};
INSTANTIATE_TEST_SUITE_P(Dispatcher, HostileInputTest, testing::ValuesIn(kRows), rowName);

} // namespace

} // namespace Tova2
