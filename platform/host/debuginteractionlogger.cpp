#include "host/debuginteractionlogger.h"

#include "vetra/errorreporter.h"

#include <utility>

namespace Host {

DebugInteractionLogger& DebugInteractionLogger::instance()
{
    // Never destroyed: a crash in the destructor of a static is to be explained as well.
    static auto* const logger = new DebugInteractionLogger;
    return *logger;
}

void DebugInteractionLogger::setFeatureStateChecker(FeatureStateChecker checker)
{
    m_checker = std::move(checker);
}

bool DebugInteractionLogger::isLogging() const
{
    const auto checker = m_checker; // it may replace itself
    try {
        return checker && checker();
    } catch (...) {
        Vetra::reportError(std::current_exception(), "interaction logger");
        return false;
    }
}

void DebugInteractionLogger::log(std::string_view interaction)
{
    if (!isLogging())
        return;
    m_interactions.emplace_back(interaction);
    if (m_interactions.size() > MostInteractions)
        m_interactions.pop_front();
}

} // namespace Host
