#include "tova/events/focusevent.h"

#include "events/eventroutes.h"

#include "tova/events/eventcanvas.h"
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
    static constexpr EventRoute<FocusEvent> routes[]{
        {EventType::FocusInEvent, &EventHandler::handleFocusInEvent},
        {EventType::FocusOutEvent, &EventHandler::handleFocusOutEvent},
    };
    callRouted(routes, *this, handler);
}

void FocusEvent::appendDetails(std::string& text) const
{
    text += " because: ";
    text += nameOf(m_reason);
}

} // namespace Tova2
