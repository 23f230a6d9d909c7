#pragma once

#include "tova/tova_export.h"

namespace Tova2 {

/// Keys of message group "tova:scene"; an enumerator's name is the key the host looks up.
enum class SceneError { NoSceneWhenDisplayOff, NoCreationDrawStyleToPop };

/// Throws Vetra::Error with group "tova:scene".
[[noreturn]] TOVA_EXPORT void raise(SceneError error);

} // namespace Tova2
