#include "events/toolstack.h"

#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/tool.h"

#include <gtest/gtest.h>

#include <optional>
#include <random>
#include <sstream>
#include <string>

namespace {

using namespace Tova2;

/// Drags once the pointer has moved far enough; the second kind waits for the others, the third
/// leaves after one drag.
class DragTool final : public Tool {
public:
    enum class Kind { Eager, Deferring, SingleUse };

    DragTool(Kind kind, Vetra::StringID role, std::string& log)
        : m_kind(kind), m_role(role), m_log(log)
    {}
    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    void cancel(ECancelReason reason, const Tool*) override
    {
        tell("cancel", static_cast<int>(reason));
        becomeIdle();
    }
    Vetra::StringID getDefaultRole() const override { return m_role; }
    void handleMousePressEvent(MouseEvent& event) override
    {
        tell("press", event.asGLMouseEvent2().position.x);
        m_press.emplace(event);
        becomeAlert();
    }
    void handleMouseMoveEvent(MouseEvent& event) override
    {
        tell("move", event.asGLMouseEvent2().position.x);
        if (!isAlert() || !movedPastInteractionThreshold(*m_press, event))
            return;
        if (m_kind == Kind::Deferring)
            becomeDeferredActive();
        else if (event.asGLMouseEvent2().position.x % 3 == 0)
            becomeActive();
    }
    void handleMouseReleaseEvent(MouseEvent& event) override
    {
        tell("release", event.asGLMouseEvent2().position.x);
        if (isActive() && m_kind == Kind::SingleUse)
            becomeDone();
        else
            becomeIdle();
    }
    void handleKeyPressEvent(KeyEvent& event) override
    {
        tell("key", static_cast<int>(event.key()));
        if (isIdle())
            event.consume();
    }

private:
    void tell(const char* what, int value)
    {
        m_log += m_role.str() + ' ' + what + ' ' + std::to_string(value) + '\n';
    }

    Kind m_kind;
    Vetra::StringID m_role;
    std::string& m_log;
    std::optional<MouseEvent> m_press;
};

/// One line of a record: type, position or key, repeat.
struct Input {
    int type = 0;
    int x = 0;
    int y = 0;
    bool isRepeat = false;
};

class Replay {
public:
    Replay()
    {
        add(DragTool::Kind::Eager, "eager");
        add(DragTool::Kind::Deferring, "deferring");
    }
    void feed(const Input& input)
    {
        if (!m_stack.getToolByRole("single"))
            add(DragTool::Kind::SingleUse, "single");
        const auto type = static_cast<EventType>(input.type);
        if (type == EventType::KeyPressEvent || type == EventType::KeyReleaseEvent) {
            const auto key = input.x % 2 ? Vetra::Key::Escape : Vetra::Key::A;
            KeyEvent event(type, nullptr, key, {}, {}, input.isRepeat);
            return type == EventType::KeyPressEvent ? m_stack.handleKeyPressEvent(event)
                                                    : m_stack.handleKeyReleaseEvent(event);
        }
        Vetra::GLMouseEvent2 mouse;
        mouse.position = {input.x, input.y};
        MouseEvent event(type, mouse);
        m_stack.handleMouseMoveEvent(event); // It goes by its type.
        log += event.isConsumed() ? "consumed\n" : "";
    }

    std::string log;

private:
    void add(DragTool::Kind kind, const char* role)
    {
        m_stack.addTool(new DragTool(kind, role, log));
    }

    ToolStack m_stack{nullptr, nullptr};
};

std::string recordInputs(int count)
{
    std::mt19937 random(1);
    constexpr EventType types[] = {EventType::MousePressEvent,   EventType::MouseMoveEvent,
                                   EventType::MouseMoveEvent,    EventType::MouseMoveEvent,
                                   EventType::MouseReleaseEvent, EventType::KeyPressEvent,
                                   EventType::KeyReleaseEvent};
    std::ostringstream record;
    for (int i = 0; i < count; ++i)
        record << static_cast<int>(types[random() % std::size(types)]) << ' ' << random() % 20
               << ' ' << random() % 20 << ' ' << random() % 2 << '\n';
    return record.str();
}

std::string play(const std::string& record)
{
    Replay replay;
    std::istringstream lines(record);
    for (Input input; lines >> input.type >> input.x >> input.y >> input.isRepeat;)
        replay.feed(input);
    return replay.log;
}

TEST(EventReplayTest, RecordedInputGivesTheSameLogAgain)
{
    bool isNumber = false;
    int count = qEnvironmentVariableIntValue("TOVA_REPLAYED_EVENTS", &isNumber);
    if (!isNumber)
        count = 50000;
    const std::string record = recordInputs(count);
    const std::string log = play(record);
    EXPECT_GT(log.size(), record.size());
    EXPECT_TRUE(play(record) == log);
}

} // namespace
