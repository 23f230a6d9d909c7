#pragma once

#include "tova/events/eventerrors.h"
#include "tova/events/eventhandler.h"
#include "tova/events/eventtype.h"

#include <cstddef>

namespace Tova2 {

/// A type that events of class `E` carry, and the operation that it calls.
template <class E>
struct EventRoute {
    EventType type;
    void (EventHandler::*operation)(E&);
};

/// Throws tova:events/UnrecognizedEvent for a type that has no route.
template <class E, std::size_t count>
void callRouted(const EventRoute<E> (&routes)[count], E& event, EventHandler& handler)
{
    for (const EventRoute<E>& route : routes) {
        if (route.type == event.type())
            return (handler.*route.operation)(event);
    }
    raise(EventError::UnrecognizedEvent);
}

} // namespace Tova2
