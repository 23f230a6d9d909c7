#include "host/editorframework.h"

#include "vetra/errorholder.h"
#include "vetra/errorreporter.h"

#include <optional>
#include <utility>

namespace Host {

namespace {

struct Frameworks {
    EditorFramework next;
    std::optional<EditorFramework> running;
};

Frameworks& frameworks()
{
    // Never destroyed: termination may be called by a static.
    static auto* const both = new Frameworks;
    return *both;
}

} // namespace

void setEditorFramework(EditorFramework framework)
{
    frameworks().next = std::move(framework);
}

void initialize_oxstudio(Vetra::ErrorHolder& errors)
{
    if (isEditorFrameworkRunning())
        return;
    const EditorFramework framework = frameworks().next; // it may be replaced meanwhile
    frameworks().running = framework;
    try {
        if (framework.initialize)
            framework.initialize(errors);
    } catch (...) {
        errors.add(std::current_exception());
    }
}

void terminate_oxstudio()
{
    const auto framework = std::exchange(frameworks().running, std::nullopt);
    try {
        if (framework && framework->terminate)
            framework->terminate();
    } catch (...) {
        Vetra::reportError(std::current_exception(), "editor framework");
    }
}

bool isEditorFrameworkRunning()
{
    return frameworks().running.has_value();
}

} // namespace Host
