#pragma once

#include "vetra/vetra_export.h"

#include <chrono>
#include <functional>
#include <memory>

namespace Vetra {

/// Repeating timer on the host's event loop. GUI thread only. Inside its own callback it may be
/// stopped, started anew or destroyed. After `stop` or destruction no call arrives. A callback that
/// throws is reported (`setErrorReporter`) and not called again.
class VETRA_EXPORT QuarnTimer {
public:
    QuarnTimer();
    QuarnTimer(const QuarnTimer&) = delete;
    QuarnTimer& operator=(const QuarnTimer&) = delete;
    ~QuarnTimer();

    /// Whether there is an event loop to run on: an application object exists.
    static bool isServicePresent() noexcept;

    /// Replaces what ran before. An interval below 1 ms counts as 1 ms. Without a service, or
    /// without a callback, the timer is left stopped.
    void startRepeating(std::chrono::milliseconds interval, std::function<void()> callback);
    void stop() noexcept;
    bool isActive() const noexcept { return m_ticker != nullptr; }

private:
    class Ticker;
    std::unique_ptr<Ticker> m_ticker; // exists while the timer runs
};

} // namespace Vetra
