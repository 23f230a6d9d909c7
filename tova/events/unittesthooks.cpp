#include "tova/events/unittesthooks.h"

#include "events/toolstack.h"

namespace Tova2 {

IToolStack* UnitTestHooks::createConcreteToolStackForUnittest()
{
    return new ToolStack(nullptr, nullptr);
}

EventHandler* UnitTestHooks::toolStackAsEventHandlerForUnittest(IToolStack* stack)
{
    return dynamic_cast<EventHandler*>(stack);
}

} // namespace Tova2
