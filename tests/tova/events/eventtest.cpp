#include "events/recordinghandler.h"

#include "tova/events/delegatingeventhandler.h"
#include "tova/events/eventerrors.h"
#include "vetra/error.h"

#include <gmock/gmock.h>

#include <functional>
#include <limits>
#include <thread>

namespace {

using namespace Tova2;
using testing::ElementsAre;
using Vetra::GLMouseEvent2;
using Vetra::Key;
using Vetra::Modifier;
using Vetra::MouseButton;

struct Delegating : DelegatingEventHandler {
    using DelegatingEventHandler::setEventHandlerDelegate;
};

struct DispatchCase {
    const char* name;
    std::function<std::unique_ptr<Event>(EventType)> make;
    /// Number of the type and what it calls; every other type is refused.
    std::map<unsigned, std::string> operations;
};
class DispatchTest : public testing::TestWithParam<DispatchCase> {};

TEST_P(DispatchTest, EachTypeCallsItsOperationAlsoOfADelegateAndOthersAreRefused)
{
    for (unsigned type = 0; type <= 22; ++type) {
        SCOPED_TRACE(nameOf(EventType(type)));
        const auto event = GetParam().make(EventType(type));
        RecordingHandler handler;
        Delegating delegating;
        delegating.setEventHandlerDelegate(&handler);
        const auto expected = GetParam().operations.find(type);
        if (expected != GetParam().operations.end()) {
            event->accept(delegating);
            EXPECT_THAT(handler.log, ElementsAre(expected->second));
            delegating.setEventHandlerDelegate(nullptr);
            event->accept(delegating);
            event->consume();
            event->accept(handler);
            EXPECT_EQ(handler.log.size(), 1u) << "without a delegate, and when consumed";
            continue;
        }
        try {
            event->accept(handler);
            ADD_FAILURE() << "accepted";
        } catch (const Vetra::Error& error) {
            EXPECT_EQ(error.group() + '/' + error.key(), "tova:events/UnrecognizedEvent");
        }
        EXPECT_FALSE(event->isConsumed());
        EXPECT_TRUE(handler.log.empty());
    }
}

template <class E>
auto making()
{
    return [](EventType type) { return std::make_unique<E>(type); };
}
template <class E, class Value>
auto makingOf()
{
    return [](EventType type) { return std::make_unique<E>(type, Value()); };
}

INSTANTIATE_TEST_SUITE_P(
    Events, DispatchTest,
    testing::Values(DispatchCase{"Mouse",
                                 makingOf<MouseEvent, GLMouseEvent2>(),
                                 {{1, "MousePress"},
                                  {2, "MouseDoubleClick"},
                                  {3, "MouseMove"},
                                  {4, "MouseRelease"},
                                  {7, "Wheel"},
                                  {8, "UserDragInit"}}},
                    DispatchCase{"Key",
                                 makingOf<KeyEvent, Vetra::GLKeyEvent2>(),
                                 {{13, "KeyPress"}, {14, "KeyRelease"}}},
                    DispatchCase{"Drag",
                                 makingOf<DragEvent, Vetra::GLDragEvent2>(),
                                 {{9, "DragEnter"}, {11, "Drag"}, {12, "Drop"}}},
                    DispatchCase{"Widget",
                                 making<WidgetEvent>(),
                                 {{10, "DragLeave"}, {20, "EnterCanvas"}, {21, "LeaveCanvas"}}},
                    DispatchCase{"Focus",
                                 makingOf<FocusEvent, Vetra::FocusReason>(),
                                 {{18, "FocusIn"}, {19, "FocusOut"}}},
                    DispatchCase{"ContextMenu", making<ContextMenuEvent>(), {{16, "ContextMenu"}}},
                    DispatchCase{"InputMethod",
                                 makingOf<InputMethodEvent, Vetra::GLInputMethodEvent2>(),
                                 {{15, "InputMethod"}}},
                    DispatchCase{"Pan",
                                 makingOf<PanGestureEvent, Vetra::GLPanGestureEvent2>(),
                                 {{5, "PanGesture"}}},
                    DispatchCase{"Pinch",
                                 makingOf<PinchGestureEvent, Vetra::GLPinchGestureEvent2>(),
                                 {{6, "PinchGesture"}}}),
    [](const auto& row) { return row.param.name; });

TEST(DelegatingEventHandlerTest, PassesHoverOn)
{
    RecordingHandler handler;
    Delegating delegating;
    delegating.setEventHandlerDelegate(&handler);
    MouseEvent hover(EventType::HoverEvent, GLMouseEvent2());
    delegating.handleHoverEnterEvent(hover);
    delegating.handleHoverExitEvent(hover);
    EXPECT_THAT(handler.log, ElementsAre("HoverEnter", "HoverExit"));
}

struct TextCase {
    const char* name;
    std::shared_ptr<Event> event;
    std::string expected;
};
class DebugTextTest : public testing::TestWithParam<TextCase> {};

TEST_P(DebugTextTest, IsToTheLetter)
{
    EXPECT_EQ(debugText(*GetParam().event), GetParam().expected);
}

template <class E, class... Arguments>
std::shared_ptr<Event> event(Arguments... arguments)
{
    return std::make_shared<E>(arguments...);
}

INSTANTIATE_TEST_SUITE_P(
    Events, DebugTextTest,
    testing::Values(
        TextCase{"Mouse",
                 event<MouseEvent>(EventType::MouseMoveEvent,
                                   GLMouseEvent2{.position = {3, 4},
                                                 .button = MouseButton::MidButton,
                                                 .modifiers = Modifier::Meta | Modifier::Ctrl}),
                 "MouseMoveEvent for button: MidButton at: (3, 4) with modifiers (CTRL META )"},
        TextCase{"ShiftedRepeatingKey",
                 event<KeyEvent>(EventType::KeyPressEvent, nullptr, Key::A, Modifier::Shift,
                                 std::u16string(u"A"), true),
                 "KeyPressEvent for key: Key_A with modifiers (SHIFT )(autorepeat)"},
        TextCase{"KeyOfText",
                 event<KeyEvent>(EventType::KeyReleaseEvent, nullptr, std::u16string(u"\u00e9")),
                 "KeyReleaseEvent for key: Key_Eacute with modifiers ()"},
        TextCase{"KeyOfControlCharacter",
                 event<KeyEvent>(EventType::KeyPressEvent, nullptr, std::u16string(u"\x1b")),
                 "KeyPressEvent for key: Key_Escape with modifiers ()"},
        TextCase{"KeyOfSeveralCharacters",
                 event<KeyEvent>(EventType::KeyPressEvent, nullptr, std::u16string(u"ab")),
                 "KeyPressEvent for key: Key_unknown with modifiers ()"},
        TextCase{"FocusByTab",
                 event<FocusEvent>(EventType::FocusInEvent, Vetra::FocusReason::TabReason),
                 "FocusInEvent because: TabReason"},
        TextCase{"FocusByBacktab",
                 event<FocusEvent>(EventType::FocusOutEvent, Vetra::FocusReason::BacktabReason),
                 "FocusOutEvent because: invalid reason!"},
        TextCase{"Pan",
                 event<PanGestureEvent>(EventType::PanGestureEvent, nullptr,
                                        Vetra::GestureType::Pan,
                                        Vetra::GestureState::GestureUpdated,
                                        Vetra::GLPoint<double>{1.5, -2}, 0.25),
                 "PanGestureEvent state: GestureUpdated delta: (1.5, -2) with acceleration: 0.25"},
        TextCase{"Pinch",
                 event<PinchGestureEvent>(EventType::PinchGestureEvent, nullptr,
                                          Vetra::GestureType::Pinch,
                                          Vetra::GestureState::GestureStarted,
                                          Vetra::GLPoint<double>{1, 2}, 1.1, -90.0),
                 "PinchGestureEvent at: (1, 2) centerPt: (1, 2) scaleFactor: 1.1"
                 " rotationAngle:-90"},
        TextCase{"Drop",
                 event<DragEvent>(EventType::DropEvent, Vetra::GLDragEvent2{.position = {7, 8}}),
                 "DropEvent at: (7, 8)"},
        TextCase{"ContextMenu", event<ContextMenuEvent>(EventType::ContextMenuEvent),
                 "ContextMenuEvent at: (0, 0)"},
        TextCase{"LeaveCanvas", event<WidgetEvent>(EventType::LeaveCanvasEvent),
                 "LeaveCanvasEvent"}),
    [](const auto& row) { return row.param.name; });

TEST(EventTest, PositionsAreThoseOfTheCanvasItArrivedOn)
{
    FakeCanvas canvas;
    const MouseEvent mouse(EventType::MousePressEvent,
                           GLMouseEvent2{.widget = &canvas, .position = {4, 6}});
    EXPECT_EQ(mouse.canvas(), &canvas);
    EXPECT_EQ(mouse.scenePos(), (Vetra::GLPoint<double>{12, 23}));
    EXPECT_EQ(mouse.getViewportTransform(), canvas.getViewportTransform());
    const DragEvent drag(EventType::DropEvent,
                         Vetra::GLDragEvent2{.widget = &canvas, .position = {4, 6}});
    EXPECT_EQ(drag.scenePos(), mouse.scenePos());
    const PinchGestureEvent pinch(
        EventType::PinchGestureEvent,
        Vetra::GLPinchGestureEvent2{.widget = &canvas, .centerPoint = {5, 6}});
    EXPECT_EQ(pinch.scenePos(), (Vetra::GLPoint<double>{12.5, 23}));

    struct Widget : Vetra::EventSource {
    } other;
    const MouseEvent stray(EventType::MousePressEvent,
                           GLMouseEvent2{.widget = &other, .position = {4, 6}});
    EXPECT_TRUE(!stray.canvas() && !stray.scene());
    EXPECT_EQ(stray.scenePos(), (Vetra::GLPoint<double>{4, 6}));
}

TEST(EventTest, CanvasThatAHandlerDestroysIsNoneFromThenOn)
{
    auto canvas = std::make_unique<FakeCanvas>();
    const ContextMenuEvent event(EventType::ContextMenuEvent,
                                 {.widget = canvas.get(), .position = {4, 6}});
    const ContextMenuEvent copy(event);
    canvas.reset();
    EXPECT_EQ(copy.canvas(), nullptr);
    EXPECT_EQ(event.scenePos(), (Vetra::GLPoint<double>{4, 6}));
}

TEST(EventTest, MadeUpMouseEventKeepsTheScenePositionAndCutsOffTheOthers)
{
    FakeCanvas canvas;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const MouseEvent event(EventType::MouseMoveEvent, &canvas, {0.5, nan}, {1.9, nan},
                           {-1.9, 1e300}, 0, MouseButton::NoButton, {}, {}, true, true);
    EXPECT_EQ(event.scenePos().x, 0.5);
    EXPECT_EQ(event.asGLMouseEvent2().position, (Vetra::GLPoint<int>{1, 0}));
    EXPECT_EQ(event.asGLMouseEvent2().globalPosition, (Vetra::GLPoint<int>{-1, 2147483647}));
    EXPECT_TRUE(event.getViewportTransform().isIdentity());
    EXPECT_TRUE(event.isSyntheticAutoscrollEvent());
    EXPECT_TRUE(event.asGLMouseEvent2().isTestEvent);
}

TEST(EventTest, ConsumedCopyStaysConsumedUnderTheSameNumber)
{
    KeyEvent event(EventType::KeyPressEvent, nullptr, u"x");
    event.consume();
    KeyEvent copy(event);
    const KeyEvent moved(std::move(copy));
    EXPECT_TRUE(moved.isConsumed());
    EXPECT_EQ(moved.serialNumber(), event.serialNumber());
    EXPECT_EQ(WidgetEvent(EventType::LeaveCanvasEvent).serialNumber(), event.serialNumber() + 1);
}

TEST(EventTest, NumbersStayUniqueAcrossThreads)
{
    const auto number = [] { return WidgetEvent(EventType::EnterCanvasEvent).serialNumber(); };
    const auto first = number();
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int made = 0; made < 20000; ++made)
                number();
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(number() - first, 80001u);
}

TEST(DragEventTest, AnswerIsOneOfThePossibleActions)
{
    DragEvent event(EventType::DropEvent,
                    Vetra::GLDragEvent2{.possibleActions = Vetra::DropAction::Copy});
    EXPECT_EQ(event.dropAction(), Vetra::DropAction::Ignore);
    event.setDropAction(Vetra::DropAction::Copy);
    EXPECT_EQ(event.dropAction(), Vetra::DropAction::Copy);
    event.setDropAction(Vetra::DropAction::Move);
    EXPECT_EQ(event.dropAction(), Vetra::DropAction::Ignore);
}

} // namespace
