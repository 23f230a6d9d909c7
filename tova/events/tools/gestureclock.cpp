#include "tova/events/gestureclock.h"

#include "vetra/quarntimer.h"

#include <algorithm>
#include <utility>

namespace Tova2 {

namespace {

class LoopClock final : public GestureClock {
public:
    std::chrono::nanoseconds now() const override
    {
        return std::chrono::steady_clock::now().time_since_epoch();
    }
    void startRepeating(std::chrono::milliseconds interval, std::function<void()> callback) override
    {
        m_timer.startRepeating(interval, std::move(callback));
    }
    void stop() noexcept override { m_timer.stop(); }
    bool isRunning() const noexcept override { return m_timer.isActive(); }

private:
    Vetra::QuarnTimer m_timer;
};

} // namespace

GestureClock::~GestureClock() = default;

std::unique_ptr<GestureClock> GestureClock::onEventLoop()
{
    return std::make_unique<LoopClock>();
}

struct ManualClock::State {
    std::chrono::nanoseconds now{};
    std::chrono::nanoseconds due{};
    std::chrono::nanoseconds interval{};
    std::shared_ptr<const std::function<void()>> callback; // shared: it may replace itself
};

ManualClock::ManualClock() : m_state(std::make_shared<State>()) {}

ManualClock::~ManualClock()
{
    ManualClock::stop();
}

std::chrono::nanoseconds ManualClock::now() const
{
    return m_state->now;
}

void ManualClock::startRepeating(std::chrono::milliseconds interval, std::function<void()> callback)
{
    State& state = *m_state;
    state.callback =
        callback ? std::make_shared<const std::function<void()>>(std::move(callback)) : nullptr;
    state.interval = std::max(interval, std::chrono::milliseconds(1));
    state.due = state.now + state.interval;
}

void ManualClock::stop() noexcept
{
    m_state->callback.reset();
}

bool ManualClock::isRunning() const noexcept
{
    return m_state->callback != nullptr;
}

void ManualClock::advance(std::chrono::nanoseconds duration)
{
    const auto state = m_state;
    const auto end = state->now + std::max(duration, std::chrono::nanoseconds(0));
    while (state->callback && state->due <= end) {
        state->now = state->due;
        state->due += state->interval;
        const auto callback = state->callback;
        (*callback)();
    }
    state->now = end;
}

} // namespace Tova2
