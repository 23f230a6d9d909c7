#include "events/autoscrollcontrol.h"
#include "events/probetool.h"
#include "events/recordinghandler.h"
#include "events/toolstack.h"
#include "events/toolstackhost.h"

#include "tova/scene/scene.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

// Tools that do anything in any callback, and what holds of their stack all the same.
namespace {

using namespace Tova2;
using State = Tool::EInteractionState;

struct Thrown {};

/// Steps of random play with one stack. Whatever it finds wrong it says by a failed expectation.
class Play final : public ToolStackHost, public AutoScrollControl {
public:
    explicit Play(unsigned seed) : m_random(seed) {}
    void run(int steps)
    {
        for (int role = 0; role < 4; ++role)
            m_stack->addTool(make(), roleOf(role)); // which does nothing yet: the budget is 0
        for (int i = 0; i < steps && !testing::Test::HasFailure(); ++i) {
            m_budget = 30;
            outermost(oneIn(4));
            check();
        }
        m_budget = 0;
        m_stack.reset();
        m_tools.clear();
        EXPECT_EQ(m_living, 0) << "tools that nobody holds live on";
    }
    std::size_t calls = 0;

private:
    /// What the play knows of a tool from its calls.
    struct Record {
        bool isIn = false;
        int cancels = 0;
    };

    // The tools

    ProbeTool* make()
    {
        auto* const tool = new ProbeTool(m_log, std::to_string(m_made++));
        tool->isModifying = oneIn(3);
        tool->isTransparent = oneIn(3);
        tool->wantsRepeats = oneIn(2);
        tool->scrollType = static_cast<Tool::EAutoScrollType>(below(2));
        if (oneIn(2))
            tool->cursor = static_cast<Vetra::CursorShape>(below(20));
        tool->onCursor = [this](ProbeTool&) { oneIn(60) ? throw Thrown() : void(); };
        tool->onCall = [this](ProbeTool& t, const std::string& how, Event* event) {
            called(t, how, event);
        };
        tool->onCancel = [this](ProbeTool& t) {
            if (!oneIn(8))
                t.setInteractionState(oneIn(8) ? State::Done : State::Idle);
        };
        ++m_living;
        m_records[tool] = {};
        m_tools.emplace_back(tool);
        return tool;
    }
    void called(ProbeTool& tool, const std::string& how, Event* event)
    {
        ++calls;
        if (how == "gone") {
            --m_living;
            m_records.erase(&tool);
            return;
        }
        Record& record = m_records[&tool];
        const bool comesOrGoes = how == "added" || how == "removed";
        const bool isByItself = m_isDelegating || how == "cancel 3"; // which a message makes it do
        EXPECT_TRUE(comesOrGoes || record.isIn || isByItself) << "has left: " << how;
        EXPECT_TRUE(!comesOrGoes || record.isIn != (how == "added")) << "twice: " << how;
        record.isIn = how == "added" || (record.isIn && how != "removed");
        if (how.rfind("cancel", 0) == 0)
            ++record.cancels;
        if (event && !m_isDelegating)
            offered(tool, how, *event);
        if (how != "removed" || oneIn(2))
            act(tool, event);
    }
    /// An event reaches a tool once, in the order of the stack, and only if it is for it.
    void offered(const ProbeTool& tool, const std::string& how, Event& event)
    {
        EXPECT_FALSE(m_stack->getToolstackReadonly() && tool.isModifying) << how;
        EXPECT_FALSE(tool.isDone() || event.isConsumed()) << how;
        const auto* const key = dynamic_cast<KeyEvent*>(&event);
        EXPECT_TRUE(!key || !key->isAutoRepeat() || tool.wantsRepeats) << how;
        if (how == "deferred")
            return;
        EXPECT_TRUE(m_offered.insert({&tool, event.serialNumber()}).second) << "twice";
        if (event.serialNumber() != m_outerEvent)
            return;
        EXPECT_TRUE(!m_alone || m_alone == &tool) << "beside the active one";
        const auto at = std::find(m_order.begin(), m_order.end(), &tool);
        ASSERT_NE(at, m_order.end()) << "added meanwhile, or out of order";
        m_order.erase(m_order.begin(), std::next(at));
    }

    // What they do

    void act(ProbeTool& self, Event* event)
    {
        if (m_nesting == 5)
            return;
        const Vetra::Holder<ProbeTool> keep(self.referenceCount() > 0 ? &self : nullptr);
        ++m_nesting;
        const bool wasDelegating = std::exchange(m_isDelegating, false);
        try {
            for (int actions = below(3); actions > 0 && m_budget > 0; --actions, --m_budget)
                perform(oneIn(5) ? any() : &self, event);
            if (m_budget > 0 && oneIn(25))
                throw Thrown();
        } catch (const Thrown&) {
            m_isDelegating = wasDelegating;
            --m_nesting;
            throw;
        }
        m_isDelegating = wasDelegating;
        --m_nesting;
    }
    void perform(ProbeTool* tool, Event* event)
    {
        switch (below(18)) {
        case 0:
        case 1:
        case 2:
        case 3:
        case 4:
        case 5:
            return tool->setInteractionState(static_cast<State>(below(5)));
        case 6:
            return event && oneIn(2) ? event->consume() : void();
        case 7:
            return dispatch();
        case 8:
            return oneIn(2) ? m_stack->cancelAllTools()
                            : m_stack->sendMessageToTools("AppModelChanged_PreSyncFromRoot", {});
        case 9:
            return m_stack->setToolstackReadonly(!m_stack->getToolstackReadonly());
        case 10:
            return event && m_records[tool].isIn ? delegate(*tool, *event) : void();
        case 11:
        case 12:
            return m_stack->addTool(oneIn(2) ? make() : tool, roleOf(below(6)));
        case 13:
            return m_stack->addToolBelow(oneIn(2) ? make() : any(), roleOf(below(6)));
        case 14:
            return m_stack->moveToolAbove(any(), roleOf(below(6)));
        case 15:
            return m_stack->moveToolBelow(any(), roleOf(below(6)));
        case 16:
            return static_cast<void>(m_stack->removeTool(tool));
        default:
            if (oneIn(6))
                m_stack->clearToolStack();
            else if (m_tools.size() > 3 && oneIn(2))
                m_tools.erase(m_tools.begin() + below(2));
        }
    }
    void delegate(ProbeTool& tool, Event& event)
    {
        m_isDelegating = true;
        m_stack->delegateToTool(&tool, event);
        m_isDelegating = false;
    }
    void dispatch()
    {
        KeyEvent key(oneIn(3) ? EventType::KeyReleaseEvent : EventType::KeyPressEvent, nullptr,
                     oneIn(2) ? Vetra::Key::Escape : Vetra::Key::A, {}, {}, oneIn(3));
        MouseEvent press(EventType::MousePressEvent, Vetra::GLMouseEvent2());
        if (oneIn(3))
            key.accept(*m_stack);
        else
            press.accept(*m_stack);
    }
    /// With nothing else under way, so that more can be said of it.
    void outermost(bool isStateChange)
    {
        try {
            isStateChange ? claim() : press();
        } catch (const Thrown&) {
        }
        m_alone = nullptr;
        m_outerEvent = 0;
        m_order.clear();
        m_offered.clear();
    }
    void press()
    {
        if (oneIn(4))
            return perform(any(), nullptr);
        if (oneIn(4))
            return dispatch();
        const auto& tools = m_stack->listCurrentTools();
        const auto isDone = [](const auto& tool) { return tool->isDone(); };
        if (std::any_of(tools.begin(), tools.end(), isDone)) // may change everything as they leave
            return dispatch();
        MouseEvent event(EventType::MousePressEvent, Vetra::GLMouseEvent2());
        const Vetra::Holder<Tool> active(m_stack->getActiveTool());
        m_outerEvent = event.serialNumber();
        m_alone = active.get();
        for (const auto& tool : tools)
            m_order.push_back(tool.get());
        if (active)
            m_order.insert(m_order.begin(), active.get());
        try {
            event.accept(*m_stack);
        } catch (const Thrown&) {
        }
        EXPECT_TRUE(!active || event.isConsumed());
    }
    /// Who becomes active has all others cancelled.
    void claim()
    {
        ProbeTool* const tool = any();
        const bool isNew = !tool->isActive() && m_stack->hasTool(tool);
        std::map<ProbeTool*, int> cancels;
        for (const auto& other : m_stack->listCurrentTools())
            cancels[static_cast<ProbeTool*>(other.get())] =
                m_records[static_cast<ProbeTool*>(other.get())].cancels;
        const Vetra::Holder<ProbeTool> keep(tool);
        tool->becomeActive();
        if (!isNew || m_stack->getActiveTool() != tool)
            return;
        for (const auto& [other, count] : cancels)
            EXPECT_TRUE(other == tool || !m_records.contains(other) || !m_stack->hasTool(other) ||
                        m_records[other].cancels > count)
                << other->name;
    }

    // What holds of the stack between two operations

    void check()
    {
        const auto& tools = m_stack->listCurrentTools();
        std::set<std::string> roles;
        std::set<const Tool*> listed;
        const Tool* const active = m_stack->getActiveTool();
        bool isEngaged = false;
        for (const auto& tool : tools) {
            const auto role = m_stack->getRoleByTool(tool.get());
            EXPECT_EQ(m_stack->getToolByRole(role), tool.get());
            EXPECT_TRUE(roles.insert(role.str()).second) << role.str();
            EXPECT_TRUE(listed.insert(tool.get()).second);
            EXPECT_EQ(tool->isActive(), tool.get() == active) << "two active ones, or unknown";
            isEngaged =
                isEngaged || tool->isActive() || tool->isDeferredActive() || tool->isAlert();
        }
        EXPECT_TRUE(!active || listed.contains(active));
        EXPECT_EQ(m_stack->hasActiveOrAlertTool(), isEngaged);
        for (const auto& [tool, record] : m_records) {
            EXPECT_EQ(listed.contains(tool), record.isIn) << tool->name;
            EXPECT_EQ(m_stack->hasTool(tool), record.isIn) << tool->name;
            EXPECT_EQ(tool->scene(), record.isIn ? m_scene.get() : nullptr) << tool->name;
        }
        EXPECT_EQ(m_shown, m_stack->overrideCursor());
        EXPECT_TRUE(!m_shown || std::any_of(tools.begin(), tools.end(), [&](const auto& tool) {
            return static_cast<ProbeTool&>(*tool).cursor == m_shown;
        })) << "the cursor of a tool that has left";
        EXPECT_EQ(m_isScrolling, active && static_cast<const ProbeTool*>(active)->scrollType !=
                                               Tool::EAutoScrollType::None);
    }

    void showToolCursor(const Vetra::Cursor& cursor) override { m_shown = cursor; }
    void restoreCursor() override { m_shown.reset(); }
    void noToolActive() override { EXPECT_EQ(m_stack->getActiveTool(), nullptr); }
    void start(Tool::EAutoScrollType type) override
    {
        m_isScrolling = type != Tool::EAutoScrollType::None;
    }
    void stop() override { m_isScrolling = false; }

    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    bool oneIn(int n) { return below(n) == 0; }
    ProbeTool* any() { return m_tools[static_cast<std::size_t>(below(int(m_tools.size())))].get(); }
    static Vetra::StringID roleOf(int role) { return "R" + std::to_string(role); }

    std::mt19937 m_random;
    ProbeTool::Log m_log;
    Vetra::Holder<Scene> m_scene = Scene::createScene();
    std::map<ProbeTool*, Record> m_records;        // of those that live
    std::vector<Vetra::Holder<ProbeTool>> m_tools; // that the play has not forgotten
    std::vector<const Tool*> m_order;              // who may still get the outermost event
    std::set<std::pair<const Tool*, unsigned>> m_offered;
    const Tool* m_alone = nullptr;
    unsigned m_outerEvent = 0;
    std::optional<Vetra::Cursor> m_shown;
    int m_living = 0;
    int m_made = 0;
    int m_nesting = 0;
    int m_budget = 0;
    bool m_isDelegating = false;
    bool m_isScrolling = false;
    std::unique_ptr<ToolStack> m_stack = std::make_unique<ToolStack>(m_scene.get(), this);
};

TEST(ToolStackPlayTest, WhateverToolsDoTheStackStaysWhole)
{
    std::size_t calls = 0;
    const int wanted = qEnvironmentVariableIntValue("TOVA_TOOL_PLAYS");
    const unsigned plays = wanted > 0 ? static_cast<unsigned>(wanted) : 2000;
    for (unsigned seed = 0; seed < plays && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        Play play(seed);
        play.run(25);
        calls += play.calls;
    }
    EXPECT_GT(calls, 100000U);
}

} // namespace
