#include "tova/events/delegatingeventhandler.h"

#include "events/eventoperations.h"

namespace Tova2 {

#define TOVA_PASS_ON(operation, E)                                                                 \
    void DelegatingEventHandler::operation(E& event)                                               \
    {                                                                                              \
        if (m_delegate)                                                                            \
            m_delegate->operation(event);                                                          \
    }
TOVA_EVENT_OPERATIONS(TOVA_PASS_ON)
#undef TOVA_PASS_ON

} // namespace Tova2
