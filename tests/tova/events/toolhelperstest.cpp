#include "events/probetool.h"
#include "events/toolstack.h"

#include "tova/events/itoolstack.h"
#include "tova/events/movecursorupdateblocker.h"
#include "tova/events/tooldeactivator.h"
#include "tova/events/toolfactory.h"
#include "tova/events/toolstate.h"
#include "tova/events/tooltrace.h"
#include "tova/events/unittesthooks.h"

#include <gmock/gmock.h>

#include <limits>
#include <memory>

namespace {

using namespace Tova2;
using testing::ElementsAre;

struct ThresholdCase {
    const char* name;
    Vetra::GLPoint<int> to;
    bool isPast;
};
class InteractionThresholdTest : public testing::TestWithParam<ThresholdCase> {};

TEST_P(InteractionThresholdTest, BeginsAtTwoPixels)
{
    EXPECT_EQ(Tool::movedPastInteractionThreshold({0, 0}, GetParam().to), GetParam().isPast);
}
INSTANTIATE_TEST_SUITE_P(
    Tool, InteractionThresholdTest,
    testing::Values(ThresholdCase{"OnePixel", {1, 0}, false},
                    ThresholdCase{"Diagonal", {1, 1}, false},
                    ThresholdCase{"Exactly", {0, -2}, true},
                    ThresholdCase{"NoOverflow", {std::numeric_limits<int>::min(), 0}, true}),
    [](const auto& param) { return param.param.name; });

struct RegionCase {
    const char* name;
    Vetra::GLPoint<double> pointer;
    bool isInside;
};
class HotRegionTest : public testing::TestWithParam<RegionCase> {};

TEST_P(HotRegionTest, EdgesAndMarginBelongToTheRegion)
{
    ProbeTool::Log log;
    const Vetra::Holder<ProbeTool> tool(new ProbeTool(log, "tool"));
    ToolDeactivator deactivator(tool.get());
    MouseEvent move(EventType::MouseMoveEvent, nullptr, GetParam().pointer, {}, {}, 0,
                    Vetra::MouseButton::NoButton, {}, {}, false, true);
    deactivator.handleMouseMoveEvent(move);
    EXPECT_THAT(log, testing::IsEmpty()) << "without regions";
    deactivator.addHotRegion({10, 10, 20, 20});
    deactivator.addHotRegion({0, 0, std::numeric_limits<double>::quiet_NaN(), 5});
    deactivator.setHotRegionsMargin(2);
    deactivator.setHotRegionsMargin(std::numeric_limits<double>::infinity());
    deactivator.handleMouseMoveEvent(move);
    EXPECT_EQ(log.empty(), GetParam().isInside);
    EXPECT_EQ(deactivator.hotRegions().size(), 1U);
}
INSTANTIATE_TEST_SUITE_P(ToolDeactivator, HotRegionTest,
                         testing::Values(RegionCase{"OnTheMargin", {8, 32}, true},
                                         RegionCase{"BeyondTheMargin", {8, 32.01}, false},
                                         RegionCase{"LeftOfIt", {7.9, 20}, false}),
                         [](const auto& param) { return param.param.name; });

TEST(ToolDeactivatorTest, MayDieByTheCancellationItCauses)
{
    ProbeTool::Log log;
    const Vetra::Holder<ProbeTool> tool(new ProbeTool(log, "tool"));
    auto deactivator = std::make_unique<ToolDeactivator>(tool.get());
    deactivator->addHotRegion({10, 10, 1, 1});
    deactivator->setEventHandlerDelegate(tool.get());
    tool->onCancel = [&](ProbeTool&) { deactivator.reset(); };
    MouseEvent move(EventType::MouseMoveEvent, Vetra::GLMouseEvent2());
    deactivator->handleMouseMoveEvent(move);
    EXPECT_EQ(deactivator, nullptr);
}

TEST(ToolFactoryTest, LastConstructorOfARoleMakesItsTools)
{
    struct Made final : Tool {
        static Vetra::StringID staticGetDefaultRole() { return "Made"; }
        ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
        void cancel(ECancelReason, const Tool*) override {}
        Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }
    };
    ToolFactory factory;
    EXPECT_FALSE(factory.createTool("Made"));
    factory.addToolConstructor(nullptr);
    factory.addToolConstructor(new ToolConstructor<Made>);
    EXPECT_TRUE(factory.createTool("Made"));
    factory.addToolConstructor(new ToolConstructor<Made>([] { return Vetra::Holder<Made>(); }));
    EXPECT_FALSE(factory.createTool("Made"));
}

TEST(ToolStateTest, ToolInTheStatePatternHandlesByItsState)
{
    struct Pressed final : ToolState {
        using ToolState::ToolState;
        Tool::EInteractionState getInteractionState() const override
        {
            return Tool::EInteractionState::Alert;
        }
        void handleMousePressEvent(MouseEvent&) override
        {
            tool()->setInteractionState(getInteractionState());
        }
    };
    struct Delegating final : Tool {
        Delegating() { setEventHandlerDelegate(&m_state); }
        ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
        void cancel(ECancelReason, const Tool*) override {}
        Vetra::StringID getDefaultRole() const override { return "Delegating"; }
        Pressed m_state{this};
    };
    const Vetra::Holder<Tool> tool(new Delegating);
    MouseEvent press(EventType::MousePressEvent, Vetra::GLMouseEvent2());
    press.accept(*tool);
    EXPECT_TRUE(tool->isAlert());
}

TEST(MoveCursorUpdateBlockerTest, BlocksUntilTheLastOneIsGone)
{
    EXPECT_FALSE(MoveCursorUpdateBlocker::isBlocked());
    {
        const MoveCursorUpdateBlocker outer;
        {
            const MoveCursorUpdateBlocker inner;
        }
        EXPECT_TRUE(MoveCursorUpdateBlocker::isBlocked());
    }
    EXPECT_FALSE(MoveCursorUpdateBlocker::isBlocked());
}

TEST(ToolTraceTest, WritesALineForEachStepAndNothingElse)
{
    ProbeTool::Log log;
    const std::unique_ptr<IToolStack> stack(UnitTestHooks::createConcreteToolStackForUnittest());
    stack->addTool(new ProbeTool(log, "tool"));
    ToolTrace::setEnabled(true);
    testing::internal::CaptureStdout();
    KeyEvent key(EventType::KeyPressEvent, nullptr, Vetra::Key::A, Vetra::Modifier::Shift, {},
                 true);
    UnitTestHooks::toolStackAsEventHandlerForUnittest(stack.get())->handleKeyPressEvent(key);
    stack->getToolByRole("tool")->becomeActive();
    stack->sendMessageToTools("two\nlines", {});
    KeyEvent release(EventType::KeyReleaseEvent, nullptr, Vetra::Key::A, {}, {}, false);
    UnitTestHooks::toolStackAsEventHandlerForUnittest(stack.get())->handleKeyReleaseEvent(release);
    ToolTrace::setEnabled(false);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "Dispatching KeyEvent:KeyPressEvent for key: Key_A with modifiers (SHIFT )"
              "(autorepeat)\n"
              "    Trying tool (ProbeTool), was idle [dropped; tool ignores key repeat events]"
              ", state did not change\n"
              "Finished dispatching KeyEvent\n"
              "Sending message two\\x0alines\n"
              "    Handling with active tool (ProbeTool)\n"
              "    Trying tool (ProbeTool), was active, state did not change\n"
              "Dispatching KeyEvent:KeyReleaseEvent for key: Key_A with modifiers ()\n"
              "    Handling with active tool (ProbeTool)\n"
              "Finished dispatching KeyEvent\n");
}

/// Each callback in which a tool destroys its stack; the sanitizers watch.
struct EndCase {
    const char* name;
    void (*arrange)(ProbeTool& tool, const ProbeTool::Action& end);
    void (*trigger)(ToolStack& stack, Tool& tool);
};
class StackEndTest : public testing::TestWithParam<EndCase> {};

TEST_P(StackEndTest, StackEndsInsideACallback)
{
    ProbeTool::Log log;
    auto stack = std::make_unique<ToolStack>(nullptr, nullptr);
    const Vetra::Holder<ProbeTool> tool(new ProbeTool(log, "tool"));
    stack->addTool(new ProbeTool(log, "above"));
    stack->addToolBelow(tool.get(), "above");
    stack->addToolBelow(new ProbeTool(log, "below"), "tool");
    GetParam().arrange(*tool, [&](ProbeTool&) { stack.reset(); });
    GetParam().trigger(*stack, *tool);
    EXPECT_EQ(stack, nullptr);
    EXPECT_EQ(std::count(log.begin(), log.end(), "tool removed"), 1);
    EXPECT_EQ(std::count(log.begin(), log.end(), "below gone"), 1);
    EXPECT_EQ(tool->scene(), nullptr);
}

void press(ToolStack& stack, Tool&)
{
    MouseEvent event(EventType::MousePressEvent, Vetra::GLMouseEvent2());
    stack.handleMousePressEvent(event);
}
void escape(ToolStack& stack, Tool&)
{
    KeyEvent event(EventType::KeyPressEvent, nullptr, Vetra::Key::Escape, {});
    stack.handleKeyPressEvent(event);
}
void onPress(ProbeTool& tool, const ProbeTool::Action& end)
{
    tool.onPress = end;
}
void onActivePress(ProbeTool& tool, const ProbeTool::Action& end)
{
    tool.becomeActive();
    tool.onPress = end;
}
void onCancel(ProbeTool& tool, const ProbeTool::Action& end)
{
    tool.onCancel = end;
}
void onRemove(ProbeTool& tool, const ProbeTool::Action& end)
{
    tool.onRemove = end;
}
void onChange(ProbeTool& tool, const ProbeTool::Action& end)
{
    tool.stateChangeEmitter().connect(
        [end, &tool](Tool*, Tool::EInteractionState, Tool::EInteractionState) { end(tool); });
}

void removeIt(ToolStack& stack, Tool& tool)
{
    stack.removeTool(&tool);
}
void clearAll(ToolStack& stack, Tool&)
{
    stack.clearToolStack();
}
void replaceIt(ToolStack& stack, Tool&)
{
    static ProbeTool::Log log;
    stack.addTool(new ProbeTool(log, "tool"));
}
void activateAnother(ToolStack& stack, Tool&)
{
    stack.getToolByRole("below")->becomeActive();
}
void activateIt(ToolStack&, Tool& tool)
{
    tool.becomeActive();
}
void sendMessage(ToolStack& stack, Tool&)
{
    stack.sendMessageToTools("AppModelChanged_PreSyncFromRoot", {});
}
void onCancelOfActive(ProbeTool& tool, const ProbeTool::Action& end)
{
    tool.isModifying = true;
    tool.becomeActive();
    tool.onCancel = end;
}
void goReadonly(ToolStack& stack, Tool&)
{
    stack.setToolstackReadonly(true);
}

INSTANTIATE_TEST_SUITE_P(ToolStack, StackEndTest,
                         testing::Values(EndCase{"Press", onPress, press},
                                         EndCase{"PressOfTheActiveTool", onActivePress, press},
                                         EndCase{"Escape", onCancel, escape},
                                         EndCase{"Removal", onCancel, removeIt},
                                         EndCase{"FarewellOfRemoval", onRemove, removeIt},
                                         EndCase{"FarewellOfClearing", onRemove, clearAll},
                                         EndCase{"Replacement", onCancel, replaceIt},
                                         EndCase{"ActivationOfAnother", onCancel, activateAnother},
                                         EndCase{"StateChange", onChange, activateIt},
                                         EndCase{"Message", onCancel, sendMessage},
                                         EndCase{"ReadOnly", onCancelOfActive, goReadonly}),
                         [](const auto& param) { return param.param.name; });

} // namespace
