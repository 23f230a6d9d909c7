#include "widget/dispatchbench.h"

#include "support/rows.h"
#include "tova/nodes/nodeemitters.h"
#include "tova/nodes/rectnode.h"
#include "tova/widget/glcanvas.h"
#include "widgets/qt.h"

#include <QApplication>
#include <QLineEdit>
#include <QMimeData>

#include <random>

namespace Tova2 {

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

constexpr auto kPress = QEvent::MouseButtonPress;
constexpr auto kMove = QEvent::MouseMove;
constexpr auto kRelease = QEvent::MouseButtonRelease;

struct EventRow : NamedRow {
    std::function<bool(DispatchBench&)> act;
    bool isTaken;
    std::vector<std::string> heard;
};

class DispatchedEventTest : public testing::TestWithParam<EventRow> {};

TEST_P(DispatchedEventTest, ReachesTheScene)
{
    DispatchBench bench;
    EXPECT_EQ(GetParam().act(bench), GetParam().isTaken);
    EXPECT_THAT(bench.log, ElementsAreArray(GetParam().heard));
    EXPECT_EQ(bench.reported, 0);
}

std::string button(const char* type, const char* name, const char* place)
{
    return std::string(type) + " for button: " + name + " at: " + place + " with modifiers ()";
}

std::string pinch(const char* factor)
{
    return std::string("PinchGestureEvent at: (20, 40) centerPt: (20, 40) scaleFactor: ") + factor +
           " rotationAngle:0";
}

bool click(DispatchBench& bench, const QPointF& at, Qt::MouseButton button)
{
    bench.mouse(kPress, at, button, button);
    return bench.mouse(kRelease, at, button);
}

const EventRow kEvents[]{
    {{"AClickAtItsScenePoint"},
     [](auto& b) {
         return click(b, {20, 40}, Qt::LeftButton);
     },
     true,
     {button("MousePressEvent", "LeftButton", "(20, 40)"),
      button("MouseReleaseEvent", "LeftButton", "(20, 40)")}},
    {{"ADragBeginsOncePastTheDistanceAndWhereItWasPressed"},
     [](auto& b) {
         b.mouse(kPress, {20, 40}, Qt::LeftButton, Qt::LeftButton);
         const int way = QApplication::startDragDistance();
         b.mouse(kMove, {20.0 + way, 40}, Qt::NoButton, Qt::LeftButton);
         return b.mouse(kMove, {90, 40}, Qt::NoButton, Qt::LeftButton);
     },
     true,
     {button("MousePressEvent", "LeftButton", "(20, 40)"),
      button("MouseMoveEvent", "NoButton", "(25, 40)"),
      button("UserDragInitEvent", "LeftButton", "(20, 40)"),
      button("MouseMoveEvent", "NoButton", "(55, 40)")}},
    {{"AReleaseWhosePressWasElsewhereIsNobodysBusiness"},
     [](auto& b) {
         return b.mouse(kRelease, {1, 1}, Qt::LeftButton);
     },
     true,
     {}},
    {{"OneMenuARightClick"},
     [](auto& b) {
         const auto ask = [&] {
             return b.send(QContextMenuEvent(QContextMenuEvent::Mouse, {20, 40}, {20, 40}));
         };
         b.mouse(kPress, {20, 40}, Qt::RightButton, Qt::RightButton);
         ask();
         b.mouse(kRelease, {20, 40}, Qt::RightButton);
         return ask();
     },
     true,
     {button("MousePressEvent", "RightButton", "(20, 40)"), "ContextMenuEvent at: (20, 40)",
      button("MouseReleaseEvent", "RightButton", "(20, 40)")}},
    {{"AKeyHeldWhileTheFocusGoesIsReleased"},
     [](auto& b) {
         b.send(QFocusEvent(QEvent::FocusIn, Qt::TabFocusReason));
         b.send(QKeyEvent(QEvent::KeyPress, Qt::Key_Space, {}, QStringLiteral(" ")));
         return b.send(QFocusEvent(QEvent::FocusOut, Qt::TabFocusReason));
     },
     false,
     {"FocusInEvent because: TabReason", "KeyPressEvent for key: Key_Space with modifiers ()",
      "KeyReleaseEvent for key: Key_Space with modifiers ()", "FocusOutEvent because: TabReason"}},
    {{"ADisabledCanvasIsLeftOnceAndHearsNothing"},
     [](auto& b) {
         b.send(QEnterEvent({1, 1}, {1, 1}, {1, 1}));
         b.host.isEnabled = false;
         b.send(QEvent(QEvent::EnabledChange));
         b.mouse(kMove, {5, 5});
         b.host.isEnabled = true;
         return b.send(QEvent(QEvent::Leave));
     },
     false,
     {"EnterCanvasEvent", "LeaveCanvasEvent"}},
    {{"ANativePinch"},
     [](auto& b) {
         const auto gesture = [&](Qt::NativeGestureType type, double value) {
             return b.send(
                 QNativeGestureEvent(type, nullptr, {20, 40}, {20, 40}, {20, 40}, value, 0, 0));
         };
         gesture(Qt::BeginNativeGesture, 0);
         gesture(Qt::ZoomNativeGesture, 0.5);
         return gesture(Qt::EndNativeGesture, 0);
     },
     true,
     {pinch("1"), pinch("1.5"), pinch("1")}},
};
INSTANTIATE_TEST_SUITE_P(Dispatcher, DispatchedEventTest, testing::ValuesIn(kEvents), rowName);

struct EndRow : NamedRow {
    std::function<void(DispatchBench&)> end;
};

class LostReleaseTest : public testing::TestWithParam<EndRow> {};

TEST_P(LostReleaseTest, CancelsOnceAndIgnoresTheReleaseThatComesLate)
{
    DispatchBench bench;
    bench.addDragTool();
    bench.mouse(kPress, {20, 40}, Qt::LeftButton, Qt::LeftButton);
    bench.mouse(kMove, {60, 40}, Qt::NoButton, Qt::LeftButton);
    ASSERT_TRUE(bench.scene->getActiveTool());
    ASSERT_TRUE(bench.canvas->isInteracting);
    const Vetra::Holder<Scene> scene = bench.scene;
    GetParam().end(bench);
    EXPECT_FALSE(scene->hasActiveOrAlertTool());
    if (bench.dispatcher)
        bench.mouse(kRelease, {60, 40}, Qt::LeftButton);
    std::erase_if(bench.log, [](const auto& line) { return line.find("Event") != line.npos; });
    EXPECT_THAT(bench.log, ElementsAre("press", "cancel"));
}

const EndRow kEnds[]{
    {{"FocusLost"}, [](auto& b) { b.send(QFocusEvent(QEvent::FocusOut)); }},
    {{"LeftWithNoButtonDown"}, [](auto& b) { b.send(QEvent(QEvent::Leave)); }},
    {{"WindowDeactivated"}, [](auto& b) { b.send(QEvent(QEvent::WindowDeactivate)); }},
    {{"DialogInTheWay"}, [](auto& b) { b.send(QEvent(QEvent::WindowBlocked)); }},
    {{"Hidden"}, [](auto& b) { b.send(QEvent(QEvent::Hide)); }},
    {{"GrabLost"}, [](auto& b) { b.send(QEvent(QEvent::UngrabMouse)); }},
    {{"MovesOnWithoutTheButton"},
     [](auto& b) {
         b.mouse(kMove, {80, 40});
     }},
    {{"Ended"}, [](auto& b) { b.dispatcher.reset(); }},
    {{"Disabled"},
     [](auto& b) {
         b.host.isEnabled = false;
         b.send(QEvent(QEvent::EnabledChange));
     }},
    {{"SceneExchanged"},
     [](auto& b) {
         b.scene = Scene::createScene();
         b.canvas->scene = b.scene.get();
         b.dispatcher->sceneChanged();
     }},
};
INSTANTIATE_TEST_SUITE_P(Dispatcher, LostReleaseTest, testing::ValuesIn(kEnds), rowName);

TEST(EventDispatcherTest, KeepsPressesPairedWhateverReleasesAreLost)
{
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 random(seed);
        DispatchBench bench;
        bench.addDragTool();
        Qt::MouseButtons held;
        const auto step = [&] {
            const Qt::MouseButton changed = random() % 2 ? Qt::LeftButton : Qt::MiddleButton;
            const QPointF at(random() % 200, random() % 100);
            const unsigned what = random() % 12;
            if (what < 5)
                bench.mouse(kMove, at, Qt::NoButton, held);
            else if (what == 5)
                bench.send(QFocusEvent(QEvent::FocusOut, Qt::PopupFocusReason));
            else if (what == 6)
                bench.send(QEvent(random() % 2 ? QEvent::WindowDeactivate : QEvent::UngrabMouse));
            else if (held & changed) {
                held &= ~Qt::MouseButtons(changed);
                if (random() % 3)
                    bench.mouse(kRelease, at, changed, held);
            } else if (!held) { // the tool knows one button at a time
                held |= changed;
                bench.mouse(kPress, at, changed, held);
            }
        };
        for (int i = 0; i < 100; ++i)
            step();
        bench.send(QFocusEvent(QEvent::FocusOut));
        EXPECT_FALSE(bench.scene->hasActiveOrAlertTool());
        EXPECT_THAT(bench.log, testing::Not(testing::Contains(testing::HasSubstr("too many"))));
    }
}

/// Counts how often it is read.
class CountedData final : public QMimeData {
public:
    CountedData() { setData(QStringLiteral("text/plain"), QByteArray(3, 'x')); }
    int reads() const { return m_reads; }

protected:
    QVariant retrieveData(const QString& type, QVariant::Type preferred) const override
    {
        ++m_reads;
        return QMimeData::retrieveData(type, preferred);
    }

private:
    mutable int m_reads = 0;
};

TEST(EventDispatcherTest, ReadsWhatIsDraggedOnceAndGivesItUp)
{
    DispatchBench bench;
    CountedData data;
    data.setData(QStringLiteral("application/x-stranger"), "do not read");
    const auto over = [&](auto event) {
        bench.dispatcher->dispatch(event);
        return event.isAccepted();
    };
    const Qt::DropActions any = Qt::CopyAction | Qt::MoveAction;
    EXPECT_TRUE(over(QDragEnterEvent({20, 40}, any, &data, Qt::LeftButton, {})));
    EXPECT_FALSE(over(QDragMoveEvent({30, 40}, any, &data, Qt::LeftButton, {})));
    EXPECT_EQ(data.reads(), 1);
    EXPECT_THAT(bench.host.data.formats(), ElementsAre("text/plain"));
    EXPECT_EQ(bench.host.data.data("text/plain"), "xxx");
    bench.send(QDragLeaveEvent());
    EXPECT_TRUE(bench.host.data.isEmpty());
    EXPECT_FALSE(over(QDropEvent({30, 40}, any, &data, Qt::LeftButton, {})));
    EXPECT_THAT(bench.log, ElementsAre("DragEnterEvent at: (20, 40)", "DragEvent at: (25, 40)",
                                       "DragLeaveEvent"));
}

TEST(EventDispatcherTest, ShowsTheCursorThatToolsWantAndElseTheHosts)
{
    DispatchBench bench;
    bench.viewport->setCursor(Qt::CrossCursor);
    Node node = RectNode({0, 0, 100, 100});
    node.setCursor(Vetra::CursorShape::PointingHand);
    bench.scene->addNode(node);
    bench.scene->addToolByRole("CursorChangeTool");
    bench.mouse(kMove, {20, 40});
    EXPECT_EQ(bench.viewport->cursor().shape(), Qt::PointingHandCursor);
    bench.canvas->scene = nullptr;
    bench.dispatcher->sceneChanged();
    EXPECT_EQ(bench.viewport->cursor().shape(), Qt::CrossCursor);
}

TEST(EventDispatcherTest, LeavesTheGestureOnAnotherCanvasOfTheSceneAlone)
{
    DispatchBench bench;
    DragTool& tool = bench.addDragTool();
    FakeCanvas other(bench.scene.get());
    FakeHost host;
    QWidget viewport;
    EventDispatcher dispatcher(viewport, other, host);
    bench.mouse(kPress, {20, 40}, Qt::LeftButton, Qt::LeftButton);
    QMouseEvent over(kMove, {5, 5}, {5, 5}, Qt::NoButton, {}, {});
    dispatcher.dispatch(over);
    dispatcher.close();
    EXPECT_FALSE(tool.isIdle());
    bench.send(QEvent(QEvent::Hide));
    EXPECT_TRUE(tool.isIdle());
}

TEST(EventDispatcherTest, HoversAnewWhenTheViewMovesUnderAPointerThatRests)
{
    auto* const canvas = new GLCanvas(Vetra::StringID("canvas"));
    const auto scene = Scene::createScene();
    Node node = scene->addNode(RectNode({100, 100, 50, 50}));
    int entered = 0;
    node.connectTo(&NodeEmitters::hoverEnter,
                   [&](Event&, const NodeEmitters::Tags&) { ++entered; });
    canvas->setScene(scene.get());
    QMouseEvent over(kMove, {10, 10}, {10, 10}, Qt::NoButton, {}, {});
    QCoreApplication::sendEvent(Widgets::toQt(*canvas), &over);
    EXPECT_EQ(entered, 0);
    canvas->showScenePointAtViewPointAtScale({100, 100}, {0, 0}, 1);
    QCoreApplication::processEvents();
    EXPECT_EQ(entered, 1);
    canvas->destroy();
}

TEST(EventDispatcherTest, TabMovesTheFocusOnByOneWidget)
{
    QWidget window;
    auto* const before = new QLineEdit(&window);
    auto* const canvas = new GLCanvas(Vetra::StringID("canvas"));
    canvas->setScene(Scene::createScene().get());
    Widgets::toQt(*canvas)->setParent(&window);
    window.show();
    QApplication::setActiveWindow(&window);
    canvas->setFocus();
    ASSERT_TRUE(canvas->hasFocus());
    QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, {});
    QCoreApplication::sendEvent(Widgets::toQt(*canvas), &tab);
    EXPECT_TRUE(before->hasFocus());
    canvas->destroy();
}

} // namespace

} // namespace Tova2
