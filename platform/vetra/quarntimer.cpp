#include "vetra/quarntimer.h"

#include "vetra/errorreporter.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTimerEvent>

#include <algorithm>
#include <limits>
#include <utility>

namespace Vetra {

class QuarnTimer::Ticker : public QObject {
public:
    Ticker(QuarnTimer& owner, std::function<void()> callback)
        : m_owner(owner)
        , m_callback(std::make_shared<const std::function<void()>>(std::move(callback)))
    {}

protected:
    void timerEvent(QTimerEvent*) override
    {
        // The callback may end this object, and its own captures with it.
        const QPointer<Ticker> self(this);
        const auto callback = m_callback;
        try {
            (*callback)();
        } catch (...) {
            const auto error = std::current_exception();
            if (self)
                m_owner.stop();
            reportError(error, "Timer callback");
        }
    }

private:
    QuarnTimer& m_owner;
    std::shared_ptr<const std::function<void()>> m_callback;
};

QuarnTimer::QuarnTimer() = default;

QuarnTimer::~QuarnTimer() = default;

bool QuarnTimer::isServicePresent() noexcept
{
    return QCoreApplication::instance() != nullptr;
}

void QuarnTimer::startRepeating(std::chrono::milliseconds interval, std::function<void()> callback)
{
    stop();
    if (!callback || !isServicePresent())
        return;
    auto ticker = std::make_unique<Ticker>(*this, std::move(callback));
    const auto wait = std::clamp<std::chrono::milliseconds::rep>(interval.count(), 1,
                                                                 std::numeric_limits<int>::max());
    if (ticker->startTimer(static_cast<int>(wait), Qt::PreciseTimer) != 0)
        m_ticker = std::move(ticker);
}

void QuarnTimer::stop() noexcept
{
    m_ticker.reset();
}

} // namespace Vetra
