// What comes in: events, keys with the rules for Escape, and messages.

#include "events/tooldispatch.h"
#include "events/toolstackcore.h"
#include "events/toolstackscopes.h"
#include "nodes/deferrederror.h"
#include "tova/events/keyevent.h"

namespace Tova2 {

namespace {

template <class Receive>
void deliverToActive(Tool& tool, Receive receive)
{
    TraceLine line;
    const auto before = tool.getInteractionState();
    line << "    Handling with active tool (" << tool << ")";
    receive(tool, line);
    line.addNewState(tool, before);
}

template <class Receive>
void deliver(Tool& tool, const bool& hasActivated, Receive receive)
{
    TraceLine line;
    const auto before = tool.getInteractionState();
    line << "    Trying tool (" << tool << "), was " << before;
    receive(tool, line);
    line.addOutcome(tool, before, hasActivated, " (a tool activated during handling)");
}

} // namespace

void ToolStackCore::dispatch(Event& event, bool isKeyRepeat)
{
    ToolDispatch(*this, event, isKeyRepeat).run();
}

void ToolStackCore::pressKey(KeyEvent& event)
{
    const Use use(*this);
    DeferredError errors;
    if (event.key() == Vetra::Key::Escape) {
        if (cancelTools(nullptr, Tool::ECancelReason::EscapePressed, errors) == 2) {
            event.consume();
            m_hasSwallowedEscape = true;
        }
    }
    if (!event.isConsumed())
        errors.run([&] { dispatch(event, event.isAutoRepeat()); });
    settle(errors);
}

void ToolStackCore::releaseKey(KeyEvent& event)
{
    if (event.key() == Vetra::Key::Escape && m_hasSwallowedEscape) {
        event.consume();
        m_hasSwallowedEscape = false;
    }
    if (!event.isConsumed())
        dispatch(event, event.isAutoRepeat());
}

void ToolStackCore::delegateToTool(Tool* tool, Event& event)
{
    if (!tool)
        return;
    const Use use(*this);
    const Vetra::Holder<Tool> alive(tool->referenceCount() > 0 ? tool : nullptr);
    const bool wasHere = hasTool(tool);
    DeferredError errors;
    errors.run([&] {
        event.accept(*tool);
        if (wasHere && !hasTool(tool))
            m_cursor = {};
        else
            m_cursor = {tool->overrideCursor(), hasTool(tool) ? tool : nullptr};
    });
    settle(errors);
}

void ToolStackCore::sendMessage(Vetra::StringID id, const Vetra::any& payload)
{
    const Use use(*this);
    TraceLine() << "Sending message " << id.str();
    DeferredError errors;
    {
        const ActivationScope activations(*this);
        const Inside inside(*this);
        const auto receive = [&](Tool& tool, TraceLine& line) {
            m_hasActivated = false;
            if (serves(tool) && !errors.run([&] { tool.receiveMessage(id, payload); }))
                line << " [threw an exception]";
        };
        if (m_active)
            deliverToActive(*m_active, receive);
        ToolList::Walk walk(m_tools);
        while (Tool* tool = walk.next())
            deliver(*tool, m_hasActivated, receive);
    }
    removeDoneTools(errors);
    errors.run([this] { renewCursor(); });
    settle(errors);
}

} // namespace Tova2
