#include "tova/events/focusevent.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/eventerrors.h"
#include "tova/events/eventhandler.h"
#include "vetra/inputnames.h"

namespace Tova2 {

FocusEvent::FocusEvent(EventType type, const Vetra::GLFocusEvent2& event)
    : Event(type, event.widget), m_reason(event.reason)
{}

FocusEvent::FocusEvent(EventType type, Vetra::FocusReason reason)
    : FocusEvent(type, {nullptr, reason})
{}

void FocusEvent::internalAccept(EventHandler& handler)
{
    switch (type()) {
    case EventType::FocusInEvent:
        return handler.handleFocusInEvent(*this);
    case EventType::FocusOutEvent:
        return handler.handleFocusOutEvent(*this);
    default:
        raise(EventError::UnrecognizedEvent);
    }
}

void FocusEvent::appendDetails(std::string& text) const
{
    text += " because: ";
    text += nameOf(m_reason);
}

} // namespace Tova2
