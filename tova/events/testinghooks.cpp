#include "events/testinghooks.h"

namespace Tova2::TestingHooks {

const Host::FrTestingHook& inactiveWindowForToolTips()
{
    static const Host::FrTestingHook hook("InactiveWindowForToolTips",
                                          "Show tooltips in inactive windows", "events/testdriver",
                                          "Tova", 0, nullptr);
    return hook;
}

const Host::FrTestingHook& useZeroOffsetForNewEditors()
{
    static const Host::FrTestingHook hook(
        "UseZeroOffsetForNewEditors", "Use editor offset of 0 when it wasn't stored in the model",
        "events/testdriver", "Tova", 0, nullptr);
    return hook;
}

} // namespace Tova2::TestingHooks
