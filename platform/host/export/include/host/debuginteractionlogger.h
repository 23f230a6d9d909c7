#pragma once

#include "host/host_export.h"

#include <deque>
#include <functional>
#include <string>
#include <string_view>

namespace Host {

/// What the user did last, for the dialog that a crash shows. GUI thread.
class HOST_EXPORT DebugInteractionLogger {
public:
    using FeatureStateChecker = std::function<bool()>;

    static constexpr std::size_t MostInteractions = 100;

    static DebugInteractionLogger& instance();

    /// Asked before each interaction whether to keep it. Without one, which is how it begins, none
    /// is kept.
    void setFeatureStateChecker(FeatureStateChecker checker);
    const FeatureStateChecker& featureStateChecker() const noexcept { return m_checker; }

    /// Asks the checker; one that throws counts as a no.
    bool isLogging() const;
    void log(std::string_view interaction);
    /// The last `MostInteractions`, oldest first.
    const std::deque<std::string>& interactions() const noexcept { return m_interactions; }
    void clear() { m_interactions.clear(); }

private:
    DebugInteractionLogger() = default;

    FeatureStateChecker m_checker;
    std::deque<std::string> m_interactions;
};

} // namespace Host
