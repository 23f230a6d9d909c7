#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

class EventHandler;
class IToolStack;

/// For tests of tools that need no scene.
class TOVA_EXPORT UnitTestHooks {
public:
    /// A stack without a scene; the caller deletes it.
    static IToolStack* createConcreteToolStackForUnittest();
    /// The same object; null when it handles no events.
    static EventHandler* toolStackAsEventHandlerForUnittest(IToolStack* stack);

    TOVA_PLAIN_TYPE("Tova2.UnitTestHooks");
};

} // namespace Tova2
