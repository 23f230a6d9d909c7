#include "tova/events/eventhandler.h"

#include "events/eventoperations.h"

namespace Tova2 {

EventHandler::~EventHandler() = default;

#define TOVA_IGNORE(operation, E)                                                                  \
    void EventHandler::operation(E&) {}
TOVA_EVENT_OPERATIONS(TOVA_IGNORE)
#undef TOVA_IGNORE

} // namespace Tova2
