#include "tova/events/inputmethodevent.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/eventerrors.h"
#include "tova/events/eventhandler.h"

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
    if (type() != EventType::InputMethodEvent)
        raise(EventError::UnrecognizedEvent);
    handler.handleInputMethodEvent(*this);
}

} // namespace Tova2
