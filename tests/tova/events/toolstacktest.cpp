#include "events/toolstack.h"
#include "events/autoscrollcontrol.h"
#include "events/probetool.h"
#include "events/toolstackhost.h"

#include "tova/events/eventcanvas.h"

#include <gmock/gmock.h>

#include <memory>
#include <stdexcept>

namespace {

using namespace Tova2;
using testing::ElementsAre;
using testing::IsEmpty;
using State = Tool::EInteractionState;

struct ShownCursor final : ToolStackHost {
    void noToolActive() override { ++restings; }
    void showToolCursor(const Vetra::Cursor& cursor) override { shown = cursor; }
    void restoreCursor() override { shown.reset(); }
    std::optional<Vetra::Cursor> shown;
    int restings = 0;
};

struct ScrollSpy final : AutoScrollControl {
    void start(Tool::EAutoScrollType) override { isRunning = true; }
    void stop() override { isRunning = false; }
    bool isRunning = false;
};

class ToolStackTest : public testing::Test {
protected:
    using Holder = Vetra::Holder<ProbeTool>;

    /// Below those added before.
    Holder add(const char* name, ProbeTool::Action onPress = {})
    {
        const Holder tool(new ProbeTool(m_log, name));
        tool->onPress = std::move(onPress);
        if (m_last)
            m_stack->addToolBelow(tool.get(), m_last->name);
        else
            m_stack->addTool(tool.get());
        m_last = tool.get();
        m_log.clear();
        return tool;
    }
    static MouseEvent makePress()
    {
        return MouseEvent(EventType::MousePressEvent, Vetra::GLMouseEvent2());
    }
    bool press()
    {
        MouseEvent event = makePress();
        m_stack->handleMousePressEvent(event);
        return event.isConsumed();
    }
    bool key(EventType type, Vetra::Key key, bool isAutoRepeat = false)
    {
        KeyEvent event(type, nullptr, key, {}, {}, isAutoRepeat);
        if (type == EventType::KeyPressEvent)
            m_stack->handleKeyPressEvent(event);
        else
            m_stack->handleKeyReleaseEvent(event);
        return event.isConsumed();
    }
    bool escape(EventType type) { return key(type, Vetra::Key::Escape); }

    ProbeTool::Log m_log;
    ShownCursor m_cursor;
    ScrollSpy m_scroll;
    std::unique_ptr<ToolStack> m_stack = std::make_unique<ToolStack>(nullptr, &m_cursor);
    ProbeTool* m_last = nullptr;
};

TEST_F(ToolStackTest, OffersEventsFromTheTopUntilConsumed)
{
    add("a");
    add("b", [](ProbeTool& b) { b.current->consume(); });
    add("c");
    EXPECT_TRUE(press());
    EXPECT_THAT(m_log, ElementsAre("a press", "b press"));
}

TEST_F(ToolStackTest, ActiveToolIsAloneAndItsEventsAreConsumed)
{
    add("a");
    const auto b = add("b");
    b->becomeActive();
    EXPECT_THAT(m_log, ElementsAre("a cancel 1 for another"));
    m_log.clear();
    EXPECT_TRUE(press());
    EXPECT_THAT(m_log, ElementsAre("b press"));
}

TEST_F(ToolStackTest, DeferredToolActivatesWhenNobodyElseDoes)
{
    const auto a = add("a", [](ProbeTool& tool) { tool.becomeDeferredActive(); });
    const auto b = add("b");
    press();
    EXPECT_THAT(m_log, ElementsAre("a press", "b press", "a deferred", "b cancel 1 for another"));
    EXPECT_EQ(m_stack->getActiveTool(), a.get());
    a->becomeIdle();
    m_log.clear();
    b->onPress = [](ProbeTool& tool) { tool.becomeActive(); };
    press();
    EXPECT_THAT(m_log, ElementsAre("a press", "b press", "a cancel 1 for another"));
}

TEST_F(ToolStackTest, EscapeIsSwallowedWithItsReleaseWhenItInterruptsAGesture)
{
    const auto a = add("a");
    a->becomeAlert();
    EXPECT_TRUE(escape(EventType::KeyPressEvent));
    EXPECT_TRUE(escape(EventType::KeyReleaseEvent));
    EXPECT_THAT(m_log, ElementsAre("a cancel 0"));
    m_log.clear();
    a->isTransparent = true;
    a->becomeAlert();
    EXPECT_FALSE(escape(EventType::KeyPressEvent));
    EXPECT_FALSE(escape(EventType::KeyReleaseEvent));
    EXPECT_THAT(m_log, ElementsAre("a cancel 0", "a key", "a key up"));
}

TEST_F(ToolStackTest, KeyRepeatsReachOnlyThoseWhoWantThem)
{
    add("a")->wantsRepeats = true;
    add("b");
    key(EventType::KeyPressEvent, Vetra::Key::A, true);
    EXPECT_THAT(m_log, ElementsAre("a key"));
}

TEST_F(ToolStackTest, ReadOnlyCancelsAndShutsOutModifyingTools)
{
    const auto a = add("a", [](ProbeTool& tool) { tool.becomeDeferredActive(); });
    a->isModifying = true;
    a->becomeActive();
    m_stack->setToolstackReadonly(true);
    EXPECT_THAT(m_log, ElementsAre("a cancel 5"));
    m_log.clear();
    EXPECT_FALSE(press());
    a->becomeDeferredActive();
    EXPECT_FALSE(press());
    a->becomeActive();
    EXPECT_EQ(m_stack->getActiveTool(), nullptr);
    EXPECT_THAT(m_log, IsEmpty());
    for (const State begun : {State::Alert, State::DeferredActive}) {
        m_stack->setToolstackReadonly(false);
        a->setInteractionState(begun);
        m_stack->setToolstackReadonly(true);
        EXPECT_TRUE(a->isIdle()) << "waits for a release that it will not hear of";
    }
    m_stack->setToolstackReadonly(false);
    a->onCancel = [](ProbeTool&) {};
    a->becomeActive();
    m_stack->setToolstackReadonly(true);
    EXPECT_TRUE(a->isIdle());
}

TEST_F(ToolStackTest, TakenRoleIsReplacedInPlace)
{
    add("a");
    add("b");
    add("c");
    const Vetra::Holder<ProbeTool> other(new ProbeTool(m_log, "new"));
    m_stack->addTool(other.get(), "b");
    EXPECT_THAT(m_log, ElementsAre("b cancel 4", "b removed", "new added", "b gone"));
    m_log.clear();
    press();
    EXPECT_THAT(m_log, ElementsAre("a press", "new press", "c press"));
    m_stack->addTool(other.get(), "d");
    EXPECT_EQ(m_stack->getRoleByTool(other.get()), Vetra::StringID("d"));
    EXPECT_EQ(m_stack->getToolByRole("b"), nullptr);
    EXPECT_EQ(m_stack->listCurrentTools().front().get(), other.get());
}

TEST_F(ToolStackTest, RolesAreMadeUniqueByNumbers)
{
    EXPECT_EQ(m_stack->getUniqueToolRoleBasedOn("PanZoomTool").str(), "PanZoomTool");
    add("PanZoomTool");
    EXPECT_EQ(m_stack->getUniqueToolRoleBasedOn("PanZoomTool").str(), "PanZoomTool2");
    add("PanZoomTool2");
    EXPECT_EQ(m_stack->getUniqueToolRoleBasedOn("PanZoomTool").str(), "PanZoomTool3");
}

TEST_F(ToolStackTest, ToolOfAnotherStackIsRefused)
{
    const auto a = add("a");
    ToolStack other(nullptr, nullptr);
    other.addTool(a.get());
    EXPECT_FALSE(other.hasTool(a.get()));
    EXPECT_FALSE(other.removeTool(a.get()));
    EXPECT_TRUE(m_stack->removeTool(a.get()));
    other.addTool(a.get());
    EXPECT_TRUE(other.hasTool(a.get()));
}

TEST_F(ToolStackTest, ToolsOfNoStackAreNeitherMovedNorRemoved)
{
    add("a");
    const Vetra::Holder<ProbeTool> stray(new ProbeTool(m_log, "stray"));
    m_stack->moveToolAbove(stray.get(), "a");
    EXPECT_FALSE(m_stack->removeTool(stray.get()));
    EXPECT_FALSE(m_stack->hasTool(stray.get()));
    m_stack->addToolAbove(stray.get(), "nobody");
    EXPECT_EQ(m_stack->listCurrentTools().front().get(), stray.get());
    EXPECT_THAT(m_log, ElementsAre("stray added"));
}

TEST_F(ToolStackTest, StateOfAToolCountsFromWhenItComes)
{
    const Vetra::Holder<ProbeTool> done(new ProbeTool(m_log, "done"));
    done->becomeDone();
    m_stack->addTool(done.get());
    const Vetra::Holder<ProbeTool> later(new ProbeTool(m_log, "later"));
    later->becomeDeferredActive();
    m_stack->addTool(later.get());
    EXPECT_FALSE(m_stack->hasTool(done.get()));
    press();
    EXPECT_EQ(m_stack->getActiveTool(), later.get());
}

TEST_F(ToolStackTest, DelegatedToolHasTheCursorUnlessItLeaves)
{
    const auto a = add("a");
    const auto b = add("b");
    a->cursor = Vetra::CursorShape::Cross;
    b->cursor = Vetra::CursorShape::IBeam;
    m_cursor.restings = 0;
    MouseEvent event = makePress();
    m_stack->delegateToTool(b.get(), event);
    EXPECT_EQ(m_stack->overrideCursor(), b->cursor);
    EXPECT_EQ(m_cursor.restings, 1);
    b->onPress = [this](ProbeTool& tool) { m_stack->removeTool(&tool); };
    m_stack->delegateToTool(b.get(), event);
    EXPECT_EQ(m_stack->overrideCursor(), a->cursor);
    a->onPress = [](ProbeTool&) { throw 7; };
    EXPECT_THROW(m_stack->delegateToTool(a.get(), event), int);
}

TEST_F(ToolStackTest, ToolThatGetsDoneFinishesItsHandlerAndLeavesAfterTheDispatch)
{
    add("a", [this](ProbeTool& tool) {
        tool.becomeDone();
        m_log.push_back("still here");
    });
    add("b");
    press();
    EXPECT_THAT(m_log, ElementsAre("a press", "still here", "b press", "a removed", "a gone"));
}

TEST_F(ToolStackTest, ActiveToolHearsMessagesFirstAndTwice)
{
    add("a");
    add("b")->becomeActive();
    m_log.clear();
    m_stack->sendMessageToTools("AppModelChanged_PreSyncFromRoot", {});
    EXPECT_THAT(m_log, ElementsAre("b message", "b cancel 3", "a message", "a cancel 3",
                                   "b message", "b cancel 3"));
    m_log.clear();
    m_stack->sendMessageToTools("AppModelChanged_PostSyncFromRoot", {});
    EXPECT_THAT(m_log, ElementsAre("a message", "a synced", "b message", "b synced"));
}

TEST_F(ToolStackTest, TopmostCursorIsShownAndGoesWithItsTool)
{
    const auto a = add("a");
    const auto b = add("b");
    a->cursor = Vetra::CursorShape::Cross;
    b->cursor = Vetra::CursorShape::IBeam;
    press();
    EXPECT_EQ(m_cursor.shown, Vetra::Cursor(Vetra::CursorShape::Cross));
    b->becomeActive();
    press();
    EXPECT_EQ(m_cursor.shown, Vetra::Cursor(Vetra::CursorShape::IBeam));
    m_stack->removeTool(b.get());
    EXPECT_EQ(m_cursor.shown, Vetra::Cursor(Vetra::CursorShape::Cross));
    m_stack->clearToolStack();
    EXPECT_EQ(m_cursor.shown, std::nullopt);
}

TEST_F(ToolStackTest, DispatchAsksForACursorOnceThoughTheOneBeforeLeaves)
{
    const auto a = add("a");
    add("b", [&](ProbeTool&) { m_stack->removeTool(a.get()); });
    a->cursor = Vetra::CursorShape::Cross;
    int asked = 0;
    add("c")->onCursor = [&](ProbeTool& c) {
        c.cursor = Vetra::CursorShape::IBeam;
        ++asked;
    };
    press();
    EXPECT_EQ(asked, 1);
}

TEST_F(ToolStackTest, RivalsForActivityAreRefused)
{
    const auto a = add("a");
    const auto b = add("b");
    a->onCancel = [](ProbeTool& tool) {
        tool.becomeIdle();
        tool.becomeActive();
    };
    a->becomeActive();
    b->becomeActive();
    EXPECT_EQ(m_stack->getActiveTool(), b.get());
    EXPECT_TRUE(a->isIdle());
    EXPECT_TRUE(m_scroll.isRunning);
    b->onCancel = [](ProbeTool&) {};
    a->becomeActive();
    EXPECT_EQ(m_stack->getActiveTool(), a.get());
    EXPECT_TRUE(b->isIdle());
}

TEST_F(ToolStackTest, NestedCancellationsComeToAnEnd)
{
    const auto a = add("a");
    a->onCancel = [this](ProbeTool&) { m_stack->cancelAllTools(); };
    m_stack->cancelAllTools();
    EXPECT_THAT(m_log, ElementsAre("a cancel 5", "a cancel 5", "a cancel 5"));
    EXPECT_GT(m_cursor.restings, 1);
    a->onCancel = [](ProbeTool&) { throw 7; };
    EXPECT_THROW(m_stack->cancelAllTools(), int);
}

TEST_F(ToolStackTest, ClearingForgetsTheActiveToolAndCancelsNobody)
{
    add("a");
    const auto b = add("b", [this](ProbeTool&) { m_stack->clearToolStack(); });
    b->becomeActive();
    m_log.clear();
    EXPECT_TRUE(press());
    EXPECT_THAT(m_log, ElementsAre("b press", "a removed", "b removed", "a gone"));
    EXPECT_EQ(m_stack->getActiveTool(), nullptr);
    EXPECT_FALSE(m_scroll.isRunning);
}

TEST_F(ToolStackTest, StackMayBeDestroyedByATool)
{
    add("a", [this](ProbeTool&) { m_stack.reset(); });
    add("b")->cursor = Vetra::CursorShape::Cross;
    press();
    EXPECT_THAT(m_log, ElementsAre("a press", "a removed", "b removed", "a gone", "b gone"));
}

TEST_F(ToolStackTest, ExceptionEndsTheOfferingAndTheNextEventWorks)
{
    const auto a = add("a");
    add("b", [](ProbeTool&) { throw 7; });
    add("c");
    a->cursor = Vetra::CursorShape::Cross;
    EXPECT_THROW(press(), int);
    EXPECT_EQ(m_cursor.shown, Vetra::Cursor(Vetra::CursorShape::Cross));
    m_last->becomeDone();
    m_stack->getToolByRole("b")->becomeActive();
    m_log.clear();
    EXPECT_THROW(press(), int);
    EXPECT_THAT(m_log, ElementsAre("b press"));
    m_stack->getActiveTool()->becomeIdle();
    EXPECT_THROW(press(), int);
    EXPECT_THAT(m_log, ElementsAre("b press", "a press", "b press"));
}

TEST_F(ToolStackTest, CancelWalkReachesAllWhateverOneThrows)
{
    const auto a = add("a");
    const auto b = add("b");
    a->becomeAlert();
    b->becomeAlert();
    a->onCancel = [](ProbeTool&) { throw std::runtime_error("no"); };
    EXPECT_THROW(escape(EventType::KeyPressEvent), std::runtime_error);
    EXPECT_TRUE(b->isIdle());
    EXPECT_TRUE(escape(EventType::KeyReleaseEvent));
}

} // namespace
