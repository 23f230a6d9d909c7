#include "events/nodeears.h"
#include "events/probetool.h"
#include "events/recordinghandler.h"

#include "tova/events/toolfactory.h"
#include "tova/nodes/rectnode.h"
#include "tova/scene/rolloverfactory.h"
#include "tova/scene/scene.h"

#include <gmock/gmock.h>

namespace {

using namespace Tova2;
using testing::ElementsAre;

struct Ears : Vemit::Listener {};

class SceneToolsTest : public testing::Test {
protected:
    SceneToolsTest() { m_scene->clearToolStack(); }
    Vetra::Holder<ProbeTool> added(const std::string& name)
    {
        Vetra::Holder<ProbeTool> tool(new ProbeTool(m_log, name));
        m_scene->addTool(tool.get());
        return tool;
    }
    void press()
    {
        auto event = mouseAt(1, 1, EventType::MousePressEvent);
        m_scene->handleMousePressEvent(event);
    }

    ProbeTool::Log m_log;
    Vetra::Holder<Scene> m_scene = Scene::createScene();
};

TEST_F(SceneToolsTest, EveryEventReachesTheToolsByItsOperation)
{
    struct All : ProbeTool {
        using ProbeTool::ProbeTool;
        All(Log& log, EventHandler& handler) : ProbeTool(log, "all")
        {
            setEventHandlerDelegate(&handler);
        }
        // What the probe overrides goes to the delegate as well.
        void handleMousePressEvent(MouseEvent& e) override { Tool::handleMousePressEvent(e); }
        void handleKeyPressEvent(KeyEvent& e) override { Tool::handleKeyPressEvent(e); }
        void handleKeyReleaseEvent(KeyEvent& e) override { Tool::handleKeyReleaseEvent(e); }
    };
    RecordingHandler handler;
    const Vetra::Holder<Tool> tool(new All(m_log, handler));
    m_scene->addTool(tool.get());
    const auto give = [&](Event&& event) { event.accept(*m_scene); };
    for (const unsigned type : {1, 2, 3, 4, 7, 8})
        give(MouseEvent(EventType(type), Vetra::GLMouseEvent2()));
    for (const unsigned type : {9, 11, 12})
        give(DragEvent(EventType(type), Vetra::GLDragEvent2()));
    for (const unsigned type : {10, 20, 21})
        give(WidgetEvent(EventType(type)));
    for (const unsigned type : {13, 14})
        give(KeyEvent(EventType(type), nullptr, u"x"));
    for (const unsigned type : {18, 19})
        give(FocusEvent(EventType(type), Vetra::FocusReason::TabReason));
    give(InputMethodEvent(EventType::InputMethodEvent, Vetra::GLInputMethodEvent2()));
    give(ContextMenuEvent(EventType::ContextMenuEvent));
    give(PanGestureEvent(EventType::PanGestureEvent, Vetra::GLPanGestureEvent2()));
    give(PinchGestureEvent(EventType::PinchGestureEvent, Vetra::GLPinchGestureEvent2()));
    EXPECT_THAT(handler.log,
                ElementsAre("MousePress", "MouseDoubleClick", "MouseMove", "MouseRelease", "Wheel",
                            "UserDragInit", "DragEnter", "Drag", "Drop", "DragLeave", "EnterCanvas",
                            "LeaveCanvas", "KeyPress", "KeyRelease", "FocusIn", "FocusOut",
                            "InputMethod", "ContextMenu", "PanGesture", "PinchGesture"));
}

TEST_F(SceneToolsTest, ToolsByRoleComeFromTheFactory)
{
    struct Constructor : BaseToolConstructor {
        explicit Constructor(ProbeTool::Log& log) : m_log(log) {}
        Vetra::StringID getRole() const override { return "made"; }
        Vetra::Holder<Tool> createTool() override
        {
            return Vetra::Holder<Tool>(new ProbeTool(m_log, "own name"));
        }
        ProbeTool::Log& m_log;
    };
    EXPECT_EQ(m_scene->addToolByRole("made"), nullptr);
    m_scene->addToolConstructor(new Constructor(m_log));
    Tool* const tool = m_scene->addToolByRole("made");
    EXPECT_EQ(m_scene->getToolByRole("made"), tool);
    ASSERT_NE(tool, nullptr);
    EXPECT_EQ(tool->scene(), m_scene.get());
}

TEST_F(SceneToolsTest, CursorThatToolsAskForIsToldWhenItChanges)
{
    Ears canvas;
    std::vector<std::string> shown;
    m_scene->getToolOverrideCursorEmitter().connect(&canvas, [&] {
        const auto shape = static_cast<int>(m_scene->getToolOverrideCursor().shape());
        shown.push_back(m_scene->hasToolOverrideCursor() ? std::to_string(shape) : "usual");
    });
    const auto tool = added("tool");
    tool->cursor = Vetra::CursorShape::OpenHand;
    press();
    press();
    tool->cursor = Vetra::CursorShape::ClosedHand;
    press();
    tool->cursor = Vetra::CursorShape::Cross;
    tool->becomeAlert(); // by itself, as from a timer
    m_scene->removeTool(tool.get());
    EXPECT_THAT(shown, ElementsAre("17", "18", "2", "usual"));
}

TEST_F(SceneToolsTest, ReadOnlyModeKeepsModifyingToolsOutAndMovesTheCounterOn)
{
    const auto tool = added("pen");
    tool->isModifying = true;
    const unsigned before = m_scene->getSceneNodeChangeCounter();
    m_scene->setToolstackReadonly(true);
    m_scene->setToolstackReadonly(true);
    EXPECT_EQ(m_scene->getSceneNodeChangeCounter(), before + 2);
    press();
    EXPECT_TRUE(m_scene->getToolstackReadonly());
    EXPECT_THAT(m_log, ElementsAre("pen added"));
}

TEST_F(SceneToolsTest, MessagesAreSentOnAfterTheToolsHadThem)
{
    Ears host;
    m_scene->getToolMessageEmitter().connect(
        &host, [&](const Vetra::StringID& id, const Vetra::any& payload) {
            m_log.push_back("host " + id.str() + std::to_string(std::any_cast<int>(payload)));
        });
    const auto tool = added("tool");
    m_scene->sendMessageToTools("fit", 7);
    EXPECT_THAT(m_log, ElementsAre("tool added", "tool message", "host fit7"));
}

TEST_F(SceneToolsTest, ToolsHearOfHoverOnceANodeIsTopmostAndNotDuringAGesture)
{
    struct Hovering : ProbeTool {
        using ProbeTool::ProbeTool;
        void handleHoverEnterEvent(MouseEvent& event) override
        {
            hovered += "enter ";
            event.consume();
        }
        void handleHoverExitEvent(MouseEvent&) override { hovered += "exit "; }
        std::string hovered;
    };
    const auto add = [&](const char* name) {
        Vetra::Holder<Hovering> tool(new Hovering(m_log, name));
        m_scene->addTool(tool.get());
        return tool;
    };
    const auto below = add("below");
    const auto top = add("top");
    RectNode node({0, 0, 10, 10});
    m_scene->addNode(node);
    const auto move = [&](double x) {
        auto event = mouseAt(x, 5);
        m_scene->handleMouseMoveEvent(event);
    };
    move(5);
    move(6);
    top->becomeActive();
    move(50);
    top->becomeIdle();
    move(50);
    EXPECT_EQ(top->hovered, "enter exit ");
    EXPECT_EQ(below->hovered, "exit ");
    move(5);
    top->becomeActive();
    WidgetEvent leave(EventType::LeaveCanvasEvent);
    m_scene->handleLeaveCanvasEvent(leave);
    EXPECT_EQ(below->hovered, "exit ") << "the active tool owns the interaction";
    top->becomeIdle();
    EXPECT_EQ(below->hovered, "exit exit ") << "told once it is over";
    move(5);
    m_scene->removeNode(node);
    EXPECT_EQ(below->hovered, "exit exit exit ") << "the node under a resting pointer has gone";
}

TEST_F(SceneToolsTest, DestroyingTheContentLetsToolsGoUncancelledAndTheHandleStaysUsable)
{
    auto tool = added("tool");
    tool->becomeActive();
    m_scene->addNode(RectNode({0, 0, 1, 1}));
    m_scene->destroy();
    EXPECT_THAT(m_log, ElementsAre("tool added", "tool removed"));
    EXPECT_EQ(tool->scene(), nullptr);
    EXPECT_EQ(m_scene->getActiveTool(), nullptr);
    press();
    m_scene->addTool(tool.get());
    EXPECT_EQ(tool->scene(), m_scene.get());
}

TEST_F(SceneToolsTest, ToolsFollowTheContentToItsNextOwnerAndOutliveTheLast)
{
    Vetra::Holder<Scene> second(new Scene(*m_scene));
    const auto tool = added("tool");
    m_scene.reset();
    EXPECT_EQ(tool->scene(), second.get());
    EXPECT_TRUE(second->hasTool(tool.get()));
    Scene* seen = second.get();
    tool->onRemove = [&](ProbeTool& t) {
        seen = t.scene();
        throw std::runtime_error("in its farewell"); // which is reported: nobody could catch it
    };
    second.reset();
    EXPECT_EQ(seen, nullptr);
}

TEST(SceneDefaultToolsTest, StandInTheirOrder)
{
    const auto scene = Scene::createScene();
    std::vector<std::string> roles;
    for (const auto& tool : scene->listCurrentTools()) {
        roles.push_back(scene->getRoleByTool(tool.get()).str());
        EXPECT_EQ(tool->scene(), scene.get());
    }
    // That of text joins them as it is made.
    std::erase(roles, "TextTool");
    EXPECT_THAT(roles, ElementsAre("ScrollWheelTool", "ToolTipTool", "PanZoomTool",
                                   "CursorChangeTool", "UnconsumedEventTool"));
}

struct Times : RolloverFactory {
    explicit Times(int in) : m_in(in) {}
    int timeIn(const Node&) override { return m_in; }
    int m_in;
};

TEST_F(SceneToolsTest, RolloverFactoryIsFoundByTagThenByKindThenAsTheGeneralOne)
{
    const RectNode plain;
    RectNode tagged;
    tagged.addTag("slow");
    EXPECT_EQ(m_scene->getRolloverFactoryFor(plain), nullptr);
    m_scene->addRolloverFactory("", new Times(1));
    m_scene->addRolloverFactory("slow", new Times(2));
    const auto timeOf = [&](const Node& node) {
        return m_scene->getRolloverFactoryFor(node)->timeIn(node);
    };
    EXPECT_EQ(timeOf(plain), 1);
    EXPECT_EQ(timeOf(Node()), 1);
    m_scene->addRolloverFactory("Tova2.RectNode", new Times(3));
    EXPECT_EQ(timeOf(plain), 3);
    EXPECT_EQ(timeOf(tagged), 2);
    EXPECT_EQ(m_scene->getRolloverFactoryFor(plain)->timeOut(plain), DEFAULT_TOOLTIP_TIMEOUT);
    EXPECT_TRUE(m_scene->removeRolloverFactory("slow"));
    EXPECT_FALSE(m_scene->removeRolloverFactory("slow"));
    EXPECT_EQ(timeOf(tagged), 3);
}

} // namespace
