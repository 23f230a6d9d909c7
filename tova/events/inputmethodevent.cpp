#include "tova/events/inputmethodevent.h"

#include "events/eventroutes.h"

#include "tova/events/eventcanvas.h"

#include <utility>

namespace Tova2 {

InputMethodEvent::InputMethodEvent(EventType type, EventCanvas* canvas, std::u16string commitString,
                                   Vetra::any attributes, std::u16string preeditString,
                                   int replacementStart, int replacementLength, bool isTest)
    : Event(type, canvas)
    , m_event{canvas,
              std::move(commitString),
              std::move(preeditString),
              std::move(attributes),
              replacementStart,
              replacementLength,
              isTest}
{}

InputMethodEvent::InputMethodEvent(EventType type, Vetra::GLInputMethodEvent2 event)
    : Event(type, event.widget), m_event(std::move(event))
{}

void InputMethodEvent::internalAccept(EventHandler& handler)
{
    static constexpr EventRoute<InputMethodEvent> routes[]{
        {EventType::InputMethodEvent, &EventHandler::handleInputMethodEvent},
    };
    callRouted(routes, *this, handler);
}

} // namespace Tova2
