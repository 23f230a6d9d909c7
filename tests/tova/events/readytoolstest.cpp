#include "events/probetool.h"
#include "events/recordinghandler.h"

#include "tova/events/contextmenuevent.h"
#include "tova/events/contextmenutool.h"
#include "tova/events/cursorchangetool.h"
#include "tova/events/eventtestdriver.h"
#include "tova/events/movecursorupdateblocker.h"
#include "tova/events/tooltiptool.h"
#include "tova/events/unconsumedeventtool.h"
#include "tova/nodes/nodeemitters.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/rolloverfactory.h"
#include "tova/scene/scene.h"
#include "vetra/error.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>

namespace {

using namespace Tova2;
using std::chrono::milliseconds;
using Point = Vetra::GLPoint<double>;

class ReadyToolsTest : public testing::Test {
protected:
    ReadyToolsTest()
    {
        m_scene->clearToolStack();
        m_inner.setParent(m_block);
        m_scene->addNode(m_block);
    }

    ProbeTool::Log m_log; // tools write to it until the scene ends
    Vetra::Holder<Scene> m_scene = Scene::createScene();
    RectNode m_block{{0, 0, 100, 100}};
    RectNode m_inner{{10, 10, 20, 20}};
    EventTestDriver m_user{*m_scene};
    const Point m_onBlock{80, 80}, m_onInner{20, 20}, m_beside{200, 200};
};

// Cursor

TEST_F(ReadyToolsTest, TheCursorIsTheNodesOwnOrItsNearestAncestors)
{
    m_scene->addTool(new CursorChangeTool);
    m_block.setCursor(Vetra::CursorShape::SizeAll);
    m_user.moveTo(m_onInner);
    EXPECT_EQ(m_scene->getToolOverrideCursor(), Vetra::CursorShape::SizeAll);
    m_inner.setCursor(Vetra::CursorShape::Cross);
    m_user.moveTo(m_onInner);
    EXPECT_EQ(m_scene->getToolOverrideCursor(), Vetra::CursorShape::Cross);
    m_user.moveTo(m_beside);
    EXPECT_FALSE(m_scene->hasToolOverrideCursor());
}

TEST_F(ReadyToolsTest, TheCursorGoesWithItsNodeAndWithThePointer)
{
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"hidden", [&] { m_block.setVisible(false), m_user.pressKey(Vetra::Key::Shift); }},
        {"removed, and the mouse rests", [&] { m_block.remove(); }},
        {"left", [&] { m_user.leaveCanvas(); }},
    };
    m_scene->addTool(new CursorChangeTool);
    m_block.setCursor(Vetra::CursorShape::Cross);
    for (const auto& [name, end] : ends) {
        m_block.setVisible(true);
        m_scene->addNode(m_block);
        m_user.moveTo(m_onBlock);
        ASSERT_TRUE(m_scene->hasToolOverrideCursor()) << name;
        end();
        EXPECT_FALSE(m_scene->hasToolOverrideCursor()) << name;
    }
}

TEST_F(ReadyToolsTest, ACursorThatFollowsFromHoverIsThereAtOnce)
{
    struct Ears : Vemit::Listener {
    } ears;
    m_scene->addTool(new CursorChangeTool);
    m_block.connectTo(&NodeEmitters::hoverEnter, &ears,
                      [&](auto&, auto&) { m_block.setCursor(Vetra::CursorShape::Cross); });
    m_user.moveTo(m_onBlock);
    EXPECT_EQ(m_scene->getToolOverrideCursor(), Vetra::CursorShape::Cross);
}

TEST_F(ReadyToolsTest, ABlockerKeepsTheCursorWhereItWas)
{
    m_scene->addTool(new CursorChangeTool);
    m_block.setCursor(Vetra::CursorShape::Cross);
    m_user.moveTo(m_onBlock);
    {
        const MoveCursorUpdateBlocker blocker;
        m_user.moveTo(m_beside);
        EXPECT_TRUE(m_scene->hasToolOverrideCursor());
    }
    m_user.moveTo(m_beside);
    EXPECT_FALSE(m_scene->hasToolOverrideCursor());
}

// Context menu

class RecordingMenu final : public ContextMenuPresenter {
public:
    explicit RecordingMenu(std::vector<std::string>& log) : m_log(log) {}
    void show(std::vector<ContextMenuAction> actions, const Vetra::GLPoint<int>&) override
    {
        m_log.push_back("show " + std::to_string(actions.size()));
    }
    void hide() override { m_log.push_back("hide"); }

private:
    std::vector<std::string>& m_log;
};

TEST_F(ReadyToolsTest, AMenuOpensForWhatIsUnderThePointer)
{
    std::vector<std::string> log;
    const Vetra::Holder<ContextMenuTool> tool(
        new ContextMenuTool(std::make_unique<RecordingMenu>(log)));
    m_scene->addTool(tool.get());
    EXPECT_FALSE(m_user.contextMenu(m_onInner)) << "without a provider";
    ContextMenuRequest asked;
    tool->setActionProvider([&](const ContextMenuRequest& request) {
        asked = request;
        return std::vector<ContextMenuAction>(request.node.isValid() ? 2 : 0);
    });
    EXPECT_TRUE(m_user.contextMenu(m_onInner));
    EXPECT_EQ(asked.node, m_inner);
    EXPECT_FALSE(m_user.contextMenu(m_onInner, Vetra::ContextMenuReason::Keyboard))
        << "what lies in the middle of the canvas is not what is meant";
    struct Ears : Vemit::Listener {
    } ears;
    m_inner.connectTo(&NodeEmitters::keyPress, &ears, [](auto&&, auto&&) {});
    MouseEvent press(EventType::MousePressEvent, nullptr, m_onInner, {}, {}, 0,
                     Vetra::MouseButton::LeftButton, Vetra::MouseButton::LeftButton, {}, false,
                     true);
    m_scene->passMousePressEventToNode(press);
    FakeCanvas canvas(m_scene.get());
    EventTestDriver user(*m_scene, &canvas);
    EXPECT_TRUE(user.contextMenu(m_beside, Vetra::ContextMenuReason::Keyboard));
    EXPECT_EQ(asked.node, m_inner) << "it has the keyboard";
    EXPECT_EQ(asked.scenePos, m_onInner);
    EXPECT_EQ(asked.globalPos, (Vetra::GLPoint<int>{20, 0})) << "over the node";
    tool->setKeyboardNodeProvider([&] { return m_block; });
    user.contextMenu(m_beside, Vetra::ContextMenuReason::Keyboard);
    EXPECT_EQ(asked.node, m_block) << "the selection goes first";
    EXPECT_FALSE(m_user.contextMenu(m_beside)) << "nothing to offer there";
    m_scene->removeTool(tool.get());
    EXPECT_EQ(log.front(), "show 2");
    EXPECT_EQ(log.back(), "hide");
    EXPECT_EQ(std::count(log.begin(), log.end(), "show 2"), 3);
    EXPECT_TRUE(tool->isIdle());
}

TEST_F(ReadyToolsTest, AProviderMayThrowOrTakeTheToolOut)
{
    std::vector<std::string> log;
    const Vetra::Holder<ContextMenuTool> tool(
        new ContextMenuTool(std::make_unique<RecordingMenu>(log)));
    m_scene->addTool(tool.get());
    tool->setActionProvider([](const ContextMenuRequest&) -> std::vector<ContextMenuAction> {
        throw std::runtime_error("no menu today");
    });
    EXPECT_THROW(m_user.contextMenu(m_onBlock), std::runtime_error);
    EXPECT_TRUE(tool->isIdle());
    tool->setActionProvider([&](const ContextMenuRequest&) {
        m_scene->removeTool(tool.get());
        return std::vector<ContextMenuAction>(1);
    });
    m_user.contextMenu(m_onBlock);
    EXPECT_EQ(std::count(log.begin(), log.end(), "show 1"), 0);
    m_scene->addTool(tool.get());
    const Vetra::Holder<ProbeTool> other(new ProbeTool(m_log, "other"));
    other->onCancel = [](ProbeTool&) { throw std::runtime_error("not now"); };
    m_scene->addTool(other.get());
    tool->setActionProvider([](auto&) { return std::vector<ContextMenuAction>(1); });
    EXPECT_THROW(m_user.contextMenu(m_onBlock), std::runtime_error);
    EXPECT_TRUE(tool->isIdle()) << "another tool's cancellation threw";
    m_scene->removeTool(tool.get());
}

// Tool tip

class RecordingTip final : public ToolTipPresenter {
public:
    explicit RecordingTip(std::string& shown) : m_shown(shown) {}
    void show(const std::string& text, const Vetra::GLPoint<int>&) override { m_shown = text; }
    void hide() override { m_shown.clear(); }

private:
    std::string& m_shown;
};

class ToolTipTest : public ReadyToolsTest {
protected:
    ToolTipTest()
    {
        auto clock = std::make_unique<ManualClock>();
        m_clock = clock.get();
        m_tool = new ToolTipTool(std::make_unique<RecordingTip>(m_shown), std::move(clock));
        m_scene->addTool(m_tool.get());
        m_block.addTag(toolTipTag(), std::string("a block"));
    }
    void rest(int ms) { m_clock->advance(milliseconds(ms)); }

    std::string m_shown;
    ManualClock* m_clock;
    Vetra::Holder<ToolTipTool> m_tool;
};

TEST_F(ToolTipTest, ATipShowsAfterTheTimeInForTheTimeOut)
{
    m_user.moveTo(m_onInner);
    rest(400);
    m_user.moveTo(m_onBlock); // still the block's tip: resting begins anew
    rest(499);
    EXPECT_EQ(m_shown, "");
    rest(50);
    EXPECT_EQ(m_shown, "a block");
    rest(9900);
    EXPECT_EQ(m_shown, "a block");
    rest(200);
    EXPECT_EQ(m_shown, "");
    m_user.moveTo(m_onInner);
    rest(2000);
    EXPECT_EQ(m_shown, "") << "it has been read";
    m_user.moveTo(m_beside);
    m_user.moveTo(m_onInner);
    rest(600);
    EXPECT_EQ(m_shown, "a block");
}

struct SlowRollover : RolloverFactory {
    int timeIn(const Node& node) override
    {
        Scene* const scene = node.getScene();
        return scene->removeRolloverFactory("once") ? own : 2000;
    }
    int own = 2000;
    int timeOut(const Node&) override { return 0; }
};

TEST_F(ToolTipTest, AFactoryTimesTheNodesItIsFor)
{
    m_scene->addRolloverFactory("slow", new SlowRollover);
    m_block.addTag("slow");
    m_user.moveTo(m_onBlock);
    rest(1900);
    EXPECT_EQ(m_shown, "");
    rest(200);
    EXPECT_EQ(m_shown, "a block");
    rest(1000000);
    EXPECT_EQ(m_shown, "a block") << "without end";
    EXPECT_TRUE(m_scene->removeRolloverFactory("slow"));
    rest(100);
    EXPECT_EQ(m_shown, "") << "the usual time is over";
    m_block.addTag("once");
    m_scene->addRolloverFactory("once", new SlowRollover);
    m_user.moveTo(m_beside);
    m_user.moveTo(m_onBlock);
    rest(600);
    EXPECT_EQ(m_shown, "a block") << "the factory has removed itself when it was asked";
}

TEST_F(ToolTipTest, WhateverHappensTheTipGoes)
{
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"press", [&] { m_user.press(); }},
        {"release after press", [&] { m_user.release(); }},
        {"key", [&] { m_user.typeKey(Vetra::Key::Escape); }},
        {"wheel", [&] { m_user.wheel(m_onBlock, 120); }},
        {"leave", [&] { m_user.leaveCanvas(); }},
        {"focus out", [&] { m_user.focusOut(); }},
        {"menu", [&] { m_user.contextMenu(m_onBlock); }},
        {"cancel", [&] { m_scene->cancelAllTools(); }},
        {"hidden node", [&] { m_block.setVisible(false); }},
        {"removed node", [&] { m_block.remove(); }},
        {"dead node", [&] { m_block.remove(), m_block.release(); }},
    };
    for (const auto& [name, end] : ends) {
        if (!m_block.isValid())
            FAIL() << "the dead node has to be the last";
        m_block.setVisible(true);
        m_scene->addNode(m_block);
        m_user.moveTo(m_beside);
        m_user.moveTo(m_onBlock);
        rest(600);
        if (std::string(name) == "release after press")
            m_user.press();
        else
            ASSERT_EQ(m_shown, "a block") << name;
        end();
        rest(100);
        EXPECT_EQ(m_shown, "") << name;
        EXPECT_FALSE(m_clock->isRunning()) << name;
        m_user.release();
    }
    m_scene->addTool(m_tool.get());
    m_scene->removeTool(m_tool.get());
    EXPECT_FALSE(m_clock->isRunning());
}

TEST_F(ToolTipTest, AProviderMayThrowItsToolOutWhileATipIsDue)
{
    m_tool->setTextProvider([&](const Node&) { return std::string("text"); });
    m_user.moveTo(m_onBlock);
    m_tool->setTextProvider([&](const Node&) {
        m_scene->clearToolStack();
        m_tool = nullptr;
        return std::string("text");
    });
    rest(600);
    EXPECT_EQ(m_shown, "");
}

// Unconsumed events, and the driver

TEST_F(ReadyToolsTest, TheHostHearsWhatNobodyTook)
{
    std::vector<EventType> heard;
    const Vetra::Holder<UnconsumedEventTool> tool(new UnconsumedEventTool);
    const auto connection = tool->unconsumedEmitter().connect([&](Event& event) {
        heard.push_back(event.type());
        event.consume();
    });
    m_scene->addTool(tool.get());
    EXPECT_TRUE(m_user.pressKey(Vetra::Key::F1, {}, true)) << "repeated keys too";
    m_user.dropFromOutside(m_beside, {});
    m_user.pinch(Vetra::GestureState::GestureStarted, m_beside, 1.1);
    EXPECT_EQ(heard, (std::vector{EventType::KeyPressEvent, EventType::DragEnterEvent,
                                  EventType::DragEvent, EventType::DropEvent,
                                  EventType::PinchGestureEvent}));
}

std::string keyOf(const std::function<void()>& call)
{
    try {
        call();
    } catch (const Vetra::Error& error) {
        return error.group() + "/" + error.key();
    }
    return "";
}

TEST_F(ReadyToolsTest, ADragHasASourceAndEndsOnce)
{
    CursorChangeTool receiver;
    receiver.increment(); // as a local it has no other owner
    EventTestDriver user(receiver);
    const char* outside = "tova:events/BadDragDropOutsideUsecase";
    EXPECT_EQ(keyOf([&] { user.endDrag(); }), outside);
    EXPECT_EQ(keyOf([&] { user.drop(m_beside); }), outside);
    user.beginDrag(m_onBlock, nullptr, {});
    EXPECT_EQ(keyOf([&] { user.drop(m_beside); }), "tova:events/BadDraggingSource");
    EXPECT_TRUE(user.isDragging());
    EXPECT_EQ(keyOf([&] { user.endDrag(); }), "");
    EXPECT_EQ(keyOf([&] { user.endDrag(); }), outside);
    const Vetra::Holder<ProbeTool> tool(new ProbeTool(m_log, "tool"));
    tool->onPress = [](ProbeTool& t) { t.becomeActive(); };
    m_scene->addTool(tool.get());
    m_user.beginDrag(m_onBlock, nullptr, {});
    EXPECT_TRUE(tool->isIdle()) << "the drag swallows the release";
}

TEST_F(ReadyToolsTest, TheDriverTypesCharactersAndOutlivesItsCanvas)
{
    const Vetra::Holder<ProbeTool> tool(new ProbeTool(m_log, "tool"));
    std::vector<std::u16string> typed;
    auto canvas = std::make_unique<FakeCanvas>(m_scene.get());
    EventTestDriver user(*m_scene, canvas.get());
    tool->onCall = [&](ProbeTool&, const std::string& how, Event* event) {
        if (how == "key")
            typed.push_back(static_cast<KeyEvent*>(event)->text());
        if (how == "press")
            canvas.reset();
    };
    m_scene->addTool(tool.get());
    user.typeText(u"a\U0001F600");
    EXPECT_EQ(typed, (std::vector<std::u16string>{u"a", u"\U0001F600"}));
    EXPECT_FALSE(user.drag(m_onBlock, m_beside));
    EXPECT_EQ(std::count(m_log.begin(), m_log.end(), "tool press"), 1);
    tool->onCall = {};
}

} // namespace
