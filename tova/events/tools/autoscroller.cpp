#include "tova/events/autoscroller.h"

#include "events/autoscrollcontrol.h"
#include "events/tools/autoscrollregion.h"
#include "events/tools/autoscrollsettings.h"
#include "tova/events/eventcanvas.h"
#include "tova/events/gestureclock.h"
#include "tova/events/mouseevent.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <utility>

namespace Tova2 {

using Seconds = std::chrono::duration<double>;
using State = Autoscroller::State;

AutoscrollView::~AutoscrollView() = default;

/// The state machine.
class AutoscrollerPrivate final : public AutoScrollControl {
public:
    AutoscrollerPrivate(Autoscroller& owner, std::unique_ptr<GestureClock> clock, bool isOwn)
        : AutoScrollControl(isOwn)
        , handle(owner)
        , m_clock(clock ? std::move(clock) : GestureClock::onEventLoop())
    {}

    /// Oldest first, the process's own before all.
    template <class Call>
    static void forEach(Call call)
    {
        for (AutoScrollControl* const control : all()) {
            if (auto* const each = dynamic_cast<AutoscrollerPrivate*>(control))
                call(*each);
        }
    }

    void start(Tool::EAutoScrollType type) override;
    void stop() override;
    void pointerMoved(AutoscrollView& view, EventCanvas& canvas, const Vetra::GLMouseEvent2& event);
    void forgetView(const AutoscrollView& view);
    State state() const noexcept { return m_state; }

    Autoscroller& handle;
    AutoscrollSettings settings;

private:
    void enter(State state);
    void updateRegion();
    void checkState();
    void startClock();
    void beginSpeedCheck();
    bool isResting() const;
    void tick();
    void step();
    void scroll();
    double secondsSince(std::chrono::nanoseconds moment) const
    {
        return Seconds(m_clock->now() - moment).count();
    }
    Vetra::GLPoint<double> pointer() const
    {
        return {static_cast<double>(m_event.position.x), static_cast<double>(m_event.position.y)};
    }

    std::unique_ptr<GestureClock> m_clock;
    AutoscrollView* m_view = nullptr;
    EventCanvas* m_canvas = nullptr;
    Vetra::GLMouseEvent2 m_event; // the last one of the user's
    AutoscrollRegion m_region;
    State m_state = State::Idle;
    bool m_isRegionBegun = false;
    std::chrono::nanoseconds m_since{}; // of the state, the speed check or the last step
    Vetra::GLPoint<double> m_checkedAt;
};

void AutoscrollerPrivate::start(Tool::EAutoScrollType type)
{
    stop();
    if (type == Tool::EAutoScrollType::None)
        return;
    enter(State::Alert);
    updateRegion();
}

void AutoscrollerPrivate::stop()
{
    m_isRegionBegun = false;
    enter(State::Idle);
}

void AutoscrollerPrivate::pointerMoved(AutoscrollView& view, EventCanvas& canvas,
                                       const Vetra::GLMouseEvent2& event)
{
    m_view = &view;
    m_canvas = &canvas;
    m_event = event;
    if (m_state == State::Idle)
        return;
    updateRegion();
    checkState();
}

void AutoscrollerPrivate::forgetView(const AutoscrollView& view)
{
    if (m_view != &view)
        return;
    m_view = nullptr;
    m_canvas = nullptr;
    if (m_state != State::Idle)
        enter(State::Alert);
    m_isRegionBegun = false;
}

void AutoscrollerPrivate::enter(State state)
{
    m_state = state;
    m_since = m_clock->now();
    if (state == State::Idle || state == State::Alert)
        m_clock->stop();
    else if (!m_clock->isRunning())
        startClock();
}

void AutoscrollerPrivate::updateRegion()
{
    if (!m_view)
        return;
    const Vetra::GLRect<double> area = m_view->autoscrollArea();
    if (m_isRegionBegun)
        m_region.follow(settings, area, pointer());
    else
        m_region.begin(settings, area, pointer());
    m_isRegionBegun = true;
}

void AutoscrollerPrivate::checkState()
{
    const bool isInside = m_region.isInside();
    if (m_state == State::Pause && secondsSince(m_since) >= settings.immediateResumeTimeout)
        enter(State::Alert);
    if (m_state == State::Autoscroll && !isInside)
        enter(State::Pause);
    else if (m_state == State::Pause && isInside)
        enter(State::Autoscroll);
    else if (m_state == State::Alert && m_region.isBeyondEdge())
        enter(State::Autoscroll);
    else if (m_state == State::Alert && !isInside)
        m_clock->stop();
    else if (m_state == State::Alert && !m_clock->isRunning())
        beginSpeedCheck();
}

void AutoscrollerPrivate::startClock()
{
    constexpr double longest = 3600;
    const Seconds interval(std::min(settings.repeatInterval, longest));
    m_clock->startRepeating(std::chrono::round<std::chrono::milliseconds>(interval),
                            [this] { tick(); });
}

void AutoscrollerPrivate::beginSpeedCheck()
{
    m_since = m_clock->now();
    m_checkedAt = pointer();
    if (!m_clock->isRunning())
        startClock();
}

/// By the way that the pointer has gone since the check began.
bool AutoscrollerPrivate::isResting() const
{
    const double way = std::hypot(pointer().x - m_checkedAt.x, pointer().y - m_checkedAt.y);
    return way <= settings.speedThresholdPxPerSec * secondsSince(m_since);
}

void AutoscrollerPrivate::tick()
{
    try {
        step();
    } catch (...) {
        // The clock has stopped; a drag that goes on starts it anew at the edge.
        enter(State::Alert);
        throw;
    }
}

void AutoscrollerPrivate::step()
{
    if (m_state == State::Autoscroll)
        return scroll();
    if (m_state == State::Pause)
        return checkState();
    if (secondsSince(m_since) < settings.speedCheckTimeout)
        return;
    if (isResting())
        enter(State::Autoscroll);
    else
        beginSpeedCheck();
}

/// Ends with what may do anything, the death of the autoscroller included.
void AutoscrollerPrivate::scroll()
{
    const double intervals = secondsSince(m_since) / settings.repeatInterval;
    m_since = m_clock->now();
    if (!m_view || !m_view->scrollBy(m_region.step(settings, intervals)))
        return;
    if (!m_view || m_state != State::Autoscroll)
        return;
    Vetra::GLMouseEvent2 move = m_event;
    move.widget = m_canvas;
    move.button = Vetra::MouseButton::NoButton;
    move.delta = 0;
    MouseEvent event(EventType::MouseMoveEvent, move, true);
    m_view->deliver(event);
}

Autoscroller& Autoscroller::instance()
{
    // Lives on at the end of the process, when the event loop is gone already.
    static Autoscroller& own = *new Autoscroller(nullptr, true);
    Autoscroller* last = &own;
    AutoscrollerPrivate::forEach([&](AutoscrollerPrivate& each) { last = &each.handle; });
    return *last;
}

Autoscroller::Autoscroller(std::unique_ptr<GestureClock> clock)
    : Autoscroller(std::move(clock), false)
{}

Autoscroller::Autoscroller(std::unique_ptr<GestureClock> clock, bool isOwn)
{
    if (AutoScrollControl* const before = isOwn ? nullptr : AutoScrollControl::current())
        before->stop();
    d = std::make_unique<AutoscrollerPrivate>(*this, std::move(clock), isOwn);
}

Autoscroller::~Autoscroller() = default;

void Autoscroller::pointerMoved(AutoscrollView& view, EventCanvas& canvas,
                                const Vetra::GLMouseEvent2& event)
{
    d->pointerMoved(view, canvas, event);
}

void Autoscroller::forgetView(const AutoscrollView& view)
{
    AutoscrollerPrivate::forEach([&](AutoscrollerPrivate& each) { each.forgetView(view); });
}

Autoscroller::State Autoscroller::state() const noexcept
{
    return d->state();
}

const char* Autoscroller::stateName() const noexcept
{
    switch (d->state()) {
    case State::Idle:
        return "Idle";
    case State::Alert:
        return "Alert";
    case State::Autoscroll:
        return "Autoscroll";
    case State::Pause:
        break;
    }
    return "Pause";
}

std::optional<double> Autoscroller::setting(std::string_view name) const
{
    return d->settings.get(name);
}

bool Autoscroller::setSetting(std::string_view name, double value)
{
    return d->settings.set(name, value);
}

} // namespace Tova2
