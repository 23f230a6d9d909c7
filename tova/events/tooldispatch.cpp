#include "events/tooldispatch.h"

#include "events/toolstackcore.h"
#include "events/toolstackscopes.h"
#include "tova/events/event.h"
#include "tova/events/eventcanvas.h"

namespace Tova2 {

namespace {

constexpr ToolDispatch::Wording kHandling{"    Skipping modifying tool (", "    Trying tool (",
                                          " (a tool activated during handling)"};
constexpr ToolDispatch::Wording kDeferred{
    "    Skipping deferred active modifying tool (", "    Trying deferred active tool (",
    " (a tool activated during deferred activation handling)"};

void traceStart(const Event& event)
{
    TraceLine line;
    if (line.isOn())
        line << "Dispatching " << event.className() << ":" << debugText(event);
}

void traceEnd(const Event& event)
{
    TraceLine line;
    if (line.isOn())
        line << "Finished dispatching " << event.className();
}

} // namespace

/// Makes the call unless the tool does not want the event, and asks for its cursor.
template <class Call>
bool ToolDispatch::tryTool(Tool& tool, TraceLine& line, Call call)
{
    const bool isFine = m_errors.run([&] {
        if (tool.isDone())
            line << " [dropped; tool done]";
        else if (m_isKeyRepeat && !tool.requiresKeyAutoRepeat())
            line << " [dropped; tool ignores key repeat events]";
        else if (m_core.serves(tool))
            call(tool);
        m_core.collectCursor(tool);
    });
    if (!isFine)
        line << " [threw an exception]";
    return isFine;
}

template <class Call>
void ToolDispatch::offerToActive(Tool& tool, Call call)
{
    TraceLine line;
    const auto before = tool.getInteractionState();
    m_errors.run([&] {
        if (m_core.isShutOut(tool)) { // until its cancellation has returned
            line << kHandling.skipping << tool << ") in readonly mode";
            return;
        }
        line << "    Handling with active tool (" << tool << ")";
        tryTool(tool, line, call);
    });
    m_event.consume();
    line.addNewState(tool, before);
}

/// False when the tool threw, which ends the offering.
template <class Call>
bool ToolDispatch::offerTo(Tool& tool, const Wording& wording, Call call)
{
    TraceLine line;
    bool isShutOut = false;
    if (!m_errors.run([&] { isShutOut = m_core.isShutOut(tool); }))
        return false;
    if (isShutOut) {
        line << wording.skipping << tool << ") in readonly mode";
        return true;
    }
    const auto before = tool.getInteractionState();
    line << wording.trying << tool << "), was " << before;
    const bool isFine = tryTool(tool, line, call);
    line.addOutcome(tool, before, m_core.m_hasActivated, wording.activated);
    return isFine;
}

void ToolDispatch::run()
{
    if (m_core.m_tools.isEmpty())
        return;
    const ToolStackCore::Use use(m_core);
    traceStart(m_event);
    {
        const ToolStackCore::ActivationScope activations(m_core);
        const ToolStackCore::CursorScope cursor(m_core);
        m_core.removeDoneTools(m_errors);
        offer();
        m_core.removeDoneTools(m_errors);
        m_errors.run([this] { finish(); });
    }
    traceEnd(m_event);
    m_core.settle(m_errors);
}

void ToolDispatch::offer()
{
    const auto handle = [this](Tool& tool) {
        m_core.m_hasActivated = false;
        m_event.accept(tool);
    };
    {
        const ToolStackCore::Inside inside(m_core);
        if (m_core.m_active)
            offerToActive(*m_core.m_active, handle);
        ToolList::Walk walk(m_core.m_tools);
        while (Tool* tool = m_event.isConsumed() ? nullptr : walk.next()) {
            if (!offerTo(*tool, kHandling, handle))
                return;
        }
    }
    if (!m_core.m_active && m_core.m_mayHaveDeferred)
        offerDeferred();
}

void ToolDispatch::offerDeferred()
{
    const auto activate = [this](Tool& tool) { tool.deferredActivate(m_event, m_isKeyRepeat); };
    ToolList::Walk walk(m_core.m_tools);
    while (Tool* tool = m_event.isConsumed() ? nullptr : walk.next()) {
        if (tool->isDeferredActive() && !offerTo(*tool, kDeferred, activate))
            break;
    }
    m_core.noteStates();
}

void ToolDispatch::finish()
{
    EventCanvas* const canvas = m_event.canvas();
    if (!m_core.m_active && canvas && !m_core.m_isRetired)
        canvas->setToolInteraction(false);
    m_core.showCursor();
}

} // namespace Tova2
