#include "tova/main/initialize.h"

#include "main/hostlinks.h"
#include "scene/lodmanagerprivate.h"

#include "host/editorframework.h"
#include "host/featureregistry.h"
#include "host/mathgraphics.h"
#include "vetra/errorholder.h"
#include "vetra/imagecompositor.h"

#include <utility>

namespace Tova2 {

namespace {

bool isInitialized = false;
bool isTerminated = false;

void registerPlainFeatures()
{
    Host::registerFeature("RichTextToolBar", 1, nullptr, nullptr);
}

/// In the order of start; the editor framework, which comes before them, collects by itself.
constexpr void (*kStarts[])() = {
    [] { LODManagerPrivate::instance().addStandard(); },
    HostLinks::registerForShutdown,
    registerPlainFeatures,
    MathGraphics::initialize_math_graphics_kernel,
    HostLinks::checkInteractionLogger,
};

} // namespace

void initialize_tova(Vetra::ErrorHolder& errors)
{
    if (std::exchange(isInitialized, true))
        return;
    Host::initialize_oxstudio(errors);
    for (auto* const start : kStarts) {
        try {
            start();
        } catch (...) {
            errors.add(std::current_exception());
        }
    }
}

void terminate_tova()
{
    if (std::exchange(isTerminated, true))
        return;
    LODManagerPrivate::instance().removeStandard();
    HostLinks::unregisterFromShutdown();
    Host::terminate_oxstudio();
    Vetra::ImageCompositor::Manager::instance().clearCache();
}

} // namespace Tova2
