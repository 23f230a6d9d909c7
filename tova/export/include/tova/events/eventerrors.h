#pragma once

#include "tova/tova_export.h"

namespace Tova2 {

/// Keys of message group "tova:events"; an enumerator's name is the key the host looks up.
enum class EventError { UnrecognizedEvent, BadDraggingSource, BadDragDropOutsideUsecase };

/// Throws Vetra::Error with group "tova:events".
[[noreturn]] TOVA_EXPORT void raise(EventError error);

} // namespace Tova2
