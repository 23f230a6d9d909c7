#include "events/toolstack.h"

#include "events/eventoperations.h"
#include "events/toolstackcore.h"
#include "tova/events/contextmenuevent.h"
#include "tova/events/dragevent.h"
#include "tova/events/focusevent.h"
#include "tova/events/inputmethodevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/pangestureevent.h"
#include "tova/events/pinchgestureevent.h"
#include "tova/events/widgetevent.h"

namespace Tova2 {

namespace {

/// Keys alone are more than an event: Escape cancels, and they repeat.
void take(ToolStackCore& core, Event& event)
{
    core.dispatch(event, false);
}
void take(ToolStackCore& core, KeyEvent& event)
{
    if (event.type() == EventType::KeyPressEvent)
        core.pressKey(event);
    else
        core.releaseKey(event);
}

} // namespace

#define TOVA_TAKE(operation, E)                                                                    \
    void ToolStack::operation(E& event)                                                            \
    {                                                                                              \
        take(*m_core, event);                                                                      \
    }
TOVA_EVENT_OPERATIONS(TOVA_TAKE)
#undef TOVA_TAKE

} // namespace Tova2
