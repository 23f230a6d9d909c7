#include "main/hostlinks.h"

#include "main/features.h"

#include "host/debuginteractionlogger.h"
#include "host/shutdownregistry.h"
#include "tova/main/initialize.h"

#include <memory>

namespace Tova2::HostLinks {

namespace {

constexpr const char* kShutdownName = "Tova2";

/// A type of its own, to be told from the checkers of others.
struct SegvChecker {
    bool operator()() const { return Features::segvLogging().value() == 1; }
};

} // namespace

void registerForShutdown()
{
    Host::ShutdownRegistry::instance().registerObject(
        std::make_shared<Host::ShutdownObject>(kShutdownName, terminate_tova));
}

void unregisterFromShutdown()
{
    Host::ShutdownRegistry::instance().unregisterObject(kShutdownName);
}

void checkInteractionLogger()
{
    Host::DebugInteractionLogger::instance().setFeatureStateChecker(SegvChecker());
}

void cut()
{
    unregisterFromShutdown();
    auto& logger = Host::DebugInteractionLogger::instance();
    if (logger.featureStateChecker().target<SegvChecker>())
        logger.setFeatureStateChecker({});
}

} // namespace Tova2::HostLinks
