#pragma once

#include "host/frtestinghook.h"

/// Each is made at its first mention, so that no order of static initialisation matters.
namespace Tova2::TestingHooks {

const Host::FrTestingHook& inactiveWindowForToolTips();
const Host::FrTestingHook& useZeroOffsetForNewEditors();

} // namespace Tova2::TestingHooks
