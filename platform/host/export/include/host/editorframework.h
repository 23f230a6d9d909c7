#pragma once

#include "host/host_export.h"

#include <functional>

namespace Vetra {
class ErrorHolder;
}

namespace Host {

/// The framework that a host's editors are made with; a host that has none leaves it empty.
struct EditorFramework {
    std::function<void(Vetra::ErrorHolder&)> initialize;
    std::function<void()> terminate;
};

/// For the next `initialize_oxstudio`; one that runs stays the one to be terminated. GUI thread.
HOST_EXPORT void setEditorFramework(EditorFramework framework);

/// Starts the framework unless it runs. What it throws is collected like what it reports.
HOST_EXPORT void initialize_oxstudio(Vetra::ErrorHolder& errors);
/// Ends the framework if it was started, even if that failed midway. What it throws goes to the
/// error reporter.
HOST_EXPORT void terminate_oxstudio();
/// From the begin of its start to the begin of its end.
HOST_EXPORT bool isEditorFrameworkRunning();

} // namespace Host
