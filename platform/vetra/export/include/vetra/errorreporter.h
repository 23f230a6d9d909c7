#pragma once

#include "vetra/vetra_export.h"

#include <exception>
#include <functional>

namespace Vetra {

/// Hears every exception that leaves a callback which the event loop made: a timer's, a task's, a
/// menu action's. Nothing may be thrown through the loop itself. GUI thread only.
using ErrorReporter = std::function<void(std::exception_ptr)>;

/// An empty reporter restores the warning that is printed when there is none.
VETRA_EXPORT void setErrorReporter(ErrorReporter reporter);

/// `where` names the kind of callback in the warning. What the reporter itself throws is printed.
VETRA_EXPORT void reportError(std::exception_ptr error, const char* where) noexcept;

} // namespace Vetra
