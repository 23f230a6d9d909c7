#include "taskslicesource.h"

#include <QCoreApplication>
#include <QTimerEvent>

#include <utility>

namespace Host {

class TaskSliceSource::Ticker : public QObject {
public:
    explicit Ticker(std::function<void()> callback) : m_callback(std::move(callback))
    {
        startTimer(0, Qt::CoarseTimer);
    }

protected:
    void timerEvent(QTimerEvent* event) override
    {
        // The callback may request anew or cancel, and so end this object.
        killTimer(event->timerId());
        const auto callback = std::exchange(m_callback, nullptr);
        if (callback)
            callback();
    }

private:
    friend class TaskSliceSource;

    std::function<void()> m_callback; // empty once called
};

TaskSliceSource::TaskSliceSource() = default;

TaskSliceSource::~TaskSliceSource()
{
    cancel();
}

void TaskSliceSource::request(std::function<void()> callback)
{
    if (!QCoreApplication::instance() || (m_ticker && m_ticker->m_callback))
        return;
    m_ticker = std::make_unique<Ticker>(std::move(callback));
}

void TaskSliceSource::cancel()
{
    m_ticker.reset();
}

} // namespace Host
