#include "events/autoscrollcontrol.h"
#include "events/recordinghandler.h"
#include "events/referencestack.h"
#include "events/toolscript.h"
#include "events/toolstack.h"
#include "events/toolstackhost.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/tooltrace.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <map>
#include <streambuf>

namespace ToolScript {
namespace {

using namespace Tova2;

class Canvas final : public FakeCanvas {
public:
    explicit Canvas(Log& log) : m_log(log) {}
    void setToolInteraction(bool on) override { m_log.push_back(on ? "on" : "interaction off"); }

private:
    Log& m_log;
};

/// What the stack does to its surroundings, with the trace from standard output in between.
class Surroundings final : public ToolStackHost, public AutoScrollControl, std::streambuf {
public:
    explicit Surroundings(Log& log) : m_log(log), m_cout(std::cout.rdbuf(this))
    {
        AutoScrollControl::setCurrent(this);
        ToolTrace::setEnabled(true);
    }
    ~Surroundings() override
    {
        ToolTrace::setEnabled(false);
        AutoScrollControl::setCurrent(nullptr);
        std::cout.rdbuf(m_cout);
    }
    void showToolCursor(const Vetra::Cursor& cursor) override
    {
        m_log.push_back("show " + std::to_string(static_cast<int>(cursor.shape())));
    }
    void restoreCursor() override { m_log.push_back("restore"); }
    void start(Tool::EAutoScrollType type) override
    {
        m_log.push_back("scroll start " + std::to_string(static_cast<int>(type)));
    }
    void stop() override { m_log.push_back("scroll stop"); }

private:
    int overflow(int c) override
    {
        if (c == '\n')
            m_log.push_back(std::exchange(m_line, {}));
        else
            m_line += static_cast<char>(c);
        return c;
    }

    Log& m_log;
    std::streambuf* m_cout;
    std::string m_line;
};

class Player : public Tool {
public:
    inline static int living = 0;

    Player(Script& script, int number, const Traits& traits, std::map<const Tool*, int>& numbers)
        : m_script(script), m_number(number), m_traits(traits), m_numbers(numbers)
    {
        ++living;
        m_numbers[this] = number;
    }
    ~Player() override
    {
        --living;
        m_numbers.erase(this);
    }
    void onAddToStack() override { m_script.called(m_number, "added"); }
    void onRemoveFromStack() override { m_script.called(m_number, "removed"); }
    ModifyingType isModifyingTool() const override
    {
        return static_cast<ModifyingType>(m_traits.isModifying);
    }
    EAutoScrollType autoScrollTypeDuringDrag() override
    {
        return static_cast<EAutoScrollType>(m_traits.scrollType);
    }
    void cancel(ECancelReason reason, const Tool* cause) override
    {
        m_script.cancelled(m_number, static_cast<int>(reason), cause ? m_numbers.at(cause) : -1);
    }
    bool cancelsTransparently() const override { return m_traits.isTransparent; }
    Vetra::StringID getDefaultRole() const override { return roleName(m_number % kRoles); }
    bool requiresKeyAutoRepeat() const override { return m_traits.wantsRepeats; }
    std::optional<Vetra::Cursor> overrideCursor() override
    {
        m_script.asked(m_number);
        if (!m_traits.cursor)
            return {};
        return static_cast<Vetra::CursorShape>(*m_traits.cursor);
    }
    void deferredActivate(Event& event, bool isKeyRepeat) override
    {
        m_script.called(m_number, "deferred", &event);
        Tool::deferredActivate(event, isKeyRepeat);
    }
    void onAppModelChange(EAppModelChangePhase phase) override
    {
        m_script.called(m_number, "phase " + std::to_string(static_cast<int>(phase)));
        Tool::onAppModelChange(phase);
    }
    void receiveMessage(Vetra::StringID id, const Vetra::any& payload) override
    {
        m_script.called(m_number, "message");
        Tool::receiveMessage(id, payload);
    }
    void handleMousePressEvent(MouseEvent& event) override
    {
        m_script.called(m_number, "press", &event);
    }
    void handleKeyPressEvent(KeyEvent& event) override { m_script.called(m_number, "key", &event); }
    void handleKeyReleaseEvent(KeyEvent& event) override
    {
        m_script.called(m_number, "key up", &event);
    }

private:
    Script& m_script;
    int m_number;
    Traits m_traits;
    std::map<const Tool*, int>& m_numbers;
};

template <int>
class Scripted final : public Player {
public:
    using Player::Player;
};

class RealStack final : public Subject {
public:
    RealStack(Script& script, ToolStackHost& host) : m_script(script), m_stack(nullptr, &host) {}

    void create(int tool, const Traits& traits) override
    {
        m_tools.push_back(nullptr);
        m_held.emplace_back();
        makers().at(static_cast<std::size_t>(tool % kClasses))(*this, tool, traits);
    }
    void drop(int tool) override { m_held.at(static_cast<std::size_t>(tool)).reset(); }
    void add(int tool, int role) override { m_stack.addTool(at(tool), roleName(role)); }
    void addBeside(int tool, int role, bool isAbove) override
    {
        if (isAbove)
            m_stack.addToolAbove(at(tool), roleName(role));
        else
            m_stack.addToolBelow(at(tool), roleName(role));
    }
    void move(int tool, int role, bool isAbove) override
    {
        if (isAbove)
            m_stack.moveToolAbove(at(tool), roleName(role));
        else
            m_stack.moveToolBelow(at(tool), roleName(role));
    }
    bool remove(int tool) override { return m_stack.removeTool(at(tool)); }
    bool removeRole(int role) override { return m_stack.removeToolByRole(roleName(role)); }
    void clear() override { m_stack.clearToolStack(); }
    void cancelAll() override { m_stack.cancelAllTools(); }
    void send(int message) override { m_stack.sendMessageToTools(messageName(message), {}); }
    void setReadonly(bool isReadonly) override { m_stack.setToolstackReadonly(isReadonly); }
    void setState(int tool, State state) override { at(tool)->setInteractionState(state); }
    void delegate(int tool, Event& event) override { m_stack.delegateToTool(at(tool), event); }
    void dispatch(Event& event) override
    {
        if (event.type() == EventType::MousePressEvent)
            m_stack.handleMousePressEvent(static_cast<MouseEvent&>(event));
        else if (event.type() == EventType::KeyPressEvent)
            m_stack.handleKeyPressEvent(static_cast<KeyEvent&>(event));
        else
            m_stack.handleKeyReleaseEvent(static_cast<KeyEvent&>(event));
    }
    std::string dump() override
    {
        std::string text = "tools";
        for (const auto& tool : m_stack.listCurrentTools())
            text += " T" + std::to_string(m_numbers.at(tool.get())) + ":" +
                    m_stack.getRoleByTool(tool.get()).str() + ":" +
                    Tool::interactionStateName(tool->getInteractionState());
        Tool* const active = m_stack.getActiveTool();
        text += ", active " + std::to_string(active ? m_numbers.at(active) : -1);
        const auto cursor = m_stack.overrideCursor();
        return text + (m_stack.hasActiveOrAlertTool() ? ", engaged" : "") + ", cursor " +
               (cursor ? std::to_string(static_cast<int>(cursor->shape())) : "none");
    }

private:
    using Maker = void (*)(RealStack&, int, const Traits&);

    template <int Class>
    static void make(RealStack& self, int tool, const Traits& traits)
    {
        self.m_tools.back() = new Scripted<Class>(self.m_script, tool, traits, self.m_numbers);
        self.m_held.back() = self.m_tools.back();
    }
    static const std::array<Maker, kClasses>& makers()
    {
        static const std::array<Maker, kClasses> list{&make<0>, &make<1>, &make<2>, &make<3>};
        return list;
    }
    Tool* at(int tool) { return m_tools.at(static_cast<std::size_t>(tool)); }

    Script& m_script;
    std::map<const Tool*, int> m_numbers;
    std::vector<Tool*> m_tools;
    std::vector<Vetra::Holder<Tool>> m_held; // empty for those that the script has forgotten
    ToolStack m_stack;
};

Log playReal(unsigned seed, int steps)
{
    Log log;
    Canvas canvas(log);
    Script script(seed, log, canvas);
    Surroundings surroundings(log);
    Log discarded;
    {
        RealStack stack(script, surroundings);
        script.play(stack, steps);
        discarded = log; // The end of the stack is not compared.
    }
    return discarded;
}

Log playReference(unsigned seed, int steps)
{
    Log log;
    Canvas canvas(log);
    Script script(seed, log, canvas);
    ReferenceStack stack(script, log);
    script.play(stack, steps);
    return log;
}

/// The shortest run that fails, its last step up to the difference.
std::string report(const Log& real, const Log& reference)
{
    const auto [a, b] = std::mismatch(real.begin(), real.end(), reference.begin(), reference.end());
    auto line = a;
    while (line != real.begin() && line[-1].rfind("step ", 0) != 0)
        --line;
    std::string text = line == real.begin() ? "" : "fails first in " + line[-1] + ":\n";
    for (; line != a; ++line)
        text += *line + '\n';
    text += "is:        " + (a == real.end() ? "(end)" : *a) + '\n';
    return text + "should be: " + (b == reference.end() ? "(end)" : *b) + '\n';
}

TEST(ToolStackModelTest, RandomPlayAgreesWithTheReference)
{
    constexpr int stepsInASequence = 25;
    bool isNumber = false;
    int steps = qEnvironmentVariableIntValue("TOVA_TOOL_MODEL_STEPS", &isNumber);
    if (!isNumber)
        steps = 50000;
    std::size_t lines = 0;
    for (unsigned seed = 0; steps > 0; ++seed, steps -= stepsInASequence) {
        const Log real = playReal(seed, stepsInASequence);
        const Log reference = playReference(seed, stepsInASequence);
        ASSERT_TRUE(real == reference) << "seed " << seed << ' ' << report(real, reference);
        ASSERT_EQ(Player::living, 0) << "seed " << seed;
        lines += real.size();
    }
    EXPECT_GT(lines, 100000U);
}

} // namespace
} // namespace ToolScript
