#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

#include <chrono>
#include <functional>
#include <memory>

namespace Tova2 {

/// Time for tools that wait or repeat: what time it is, and calls at intervals. Each user owns a
/// clock of its own. GUI thread only.
class TOVA_EXPORT GestureClock {
public:
    GestureClock() = default;
    GestureClock(const GestureClock&) = delete;
    GestureClock& operator=(const GestureClock&) = delete;
    virtual ~GestureClock();

    /// Since a moment that stays the same; never goes back.
    virtual std::chrono::nanoseconds now() const = 0;
    /// Replaces what ran before; an interval below 1 ms counts as 1 ms. The callback may stop,
    /// restart or destroy the clock.
    virtual void startRepeating(std::chrono::milliseconds interval,
                                std::function<void()> callback) = 0;
    /// No call arrives afterwards.
    virtual void stop() noexcept = 0;
    virtual bool isRunning() const noexcept = 0;

    /// On the host's event loop and its steady clock.
    static std::unique_ptr<GestureClock> onEventLoop();

    TOVA_BASE_TYPE("Tova2.GestureClock");
};

/// Time that moves when a test says so.
class TOVA_EXPORT ManualClock final : public GestureClock {
public:
    ManualClock();
    ~ManualClock() override;

    std::chrono::nanoseconds now() const override;
    void startRepeating(std::chrono::milliseconds interval,
                        std::function<void()> callback) override;
    void stop() noexcept override;
    bool isRunning() const noexcept override;

    /// Makes each call that falls due on the way, at its own time. Time does not go back: a
    /// negative duration does nothing.
    void advance(std::chrono::nanoseconds duration);

private:
    struct State;
    std::shared_ptr<State> m_state; // a callback may destroy the clock that calls it

    TOVA_DERIVED_TYPE("Tova2.ManualClock", GestureClock);
};

} // namespace Tova2
