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

void ManualClock::startRepeating(std::chrono::milliseconds interval, std::function<void()> callback)
{
    m_callback =
        callback ? std::make_shared<const std::function<void()>>(std::move(callback)) : nullptr;
    m_interval = std::max(interval, std::chrono::milliseconds(1));
    m_due = m_now + m_interval;
}

void ManualClock::advance(std::chrono::nanoseconds duration)
{
    const auto end = m_now + std::max(duration, std::chrono::nanoseconds(0));
    while (m_callback && m_due <= end) {
        m_now = m_due;
        m_due += m_interval;
        const auto callback = m_callback;
        (*callback)();
    }
    m_now = end;
}

} // namespace Tova2
