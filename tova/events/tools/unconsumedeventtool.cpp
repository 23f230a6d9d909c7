#include "tova/events/unconsumedeventtool.h"

#include "events/eventoperations.h"

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

Vetra::StringID UnconsumedEventTool::staticGetDefaultRole()
{
    static const Vetra::StringID role("UnconsumedEventTool");
    return role;
}

void UnconsumedEventTool::cancel(ECancelReason, const Tool*)
{
    becomeIdle();
}

#define TOVA_SEND(operation, E)                                                                    \
    void UnconsumedEventTool::operation(E& event)                                                  \
    {                                                                                              \
        m_unconsumed.send(event);                                                                  \
    }
TOVA_EVENT_OPERATIONS(TOVA_SEND)
#undef TOVA_SEND

} // namespace Tova2
