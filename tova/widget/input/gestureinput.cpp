#include "widget/input/gestureinput.h"

#include "widget/input/dispatchcore.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/mouseevent.h"
#include "tova/events/pangestureevent.h"
#include "tova/events/pinchgestureevent.h"
#include "vetra/qt.h"
#include "vetra/qtevents.h"

#include <QGesture>
#include <QGestureEvent>

#include <cmath>
#include <utility>

namespace Tova2 {

using Vetra::GestureState;

namespace {

/// After which a scroll without phases has ended: long enough for the fingers to count as resting,
/// so that the view does not glide on.
constexpr std::chrono::milliseconds kScrollPause{250};
/// After which it is taken for granted that the end went elsewhere. Another step begins anew.
constexpr std::chrono::milliseconds kLostEnd{1000};

double usableFactor(double factor)
{
    return std::isfinite(factor) && factor > 0 ? factor : 1;
}

} // namespace

GestureInput::GestureInput(DispatchCore& core, std::unique_ptr<GestureClock> clock)
    : m_core(core), m_clock(clock ? std::move(clock) : GestureClock::onEventLoop())
{}

void GestureInput::pan(GestureState state, const Vetra::GLPoint<double>& delta, double acceleration)
{
    PanGestureEvent event(EventType::PanGestureEvent, &m_core.canvas(), Vetra::GestureType::Pan,
                          state, delta, acceleration);
    m_core.send(event);
}

void GestureInput::pinch(GestureState state, const Vetra::GLPoint<double>& centre, double factor,
                         double degrees)
{
    PinchGestureEvent event(EventType::PinchGestureEvent, &m_core.canvas(),
                            Vetra::GestureType::Pinch, state, centre, usableFactor(factor),
                            degrees);
    m_core.send(event);
}

void GestureInput::wheel(const QWheelEvent& event)
{
    if (TrackpadScroll::isSource(event))
        scroll(event);
    else
        turn(event);
}

void GestureInput::turn(const QWheelEvent& event)
{
    const int notches = m_notches.take(event.angleDelta(), m_clock->now());
    auto input = Vetra::fromQt(event, &m_core.canvas());
    const auto pointer = Vetra::fromQt(m_core.pointerNear(event.position()));
    input.delta = notches < 0 ? -WheelNotches::kNotch : WheelNotches::kNotch;
    for (int i = 0; i < std::abs(notches) && m_core.isOpen(); ++i) {
        // A dense screen has places between whole pixels, and a zoom about another one drifts.
        const auto place = m_core.canvas().viewPointToScenePoint(pointer);
        auto turned = MouseEvent(EventType::WheelEvent, input).withScenePos(place);
        if (!m_core.send(turned))
            return;
    }
}

void GestureInput::forgetCancelled()
{
    if (std::exchange(m_gesture, m_core.gestureNumber()) == m_gesture)
        return;
    m_scroll.forget();
    m_isNativePinch = false;
}

void GestureInput::scroll(const QWheelEvent& event)
{
    forgetCancelled();
    m_scrolledAt = Vetra::fromQt(m_core.pointerNear(event.position()));
    const auto steps = m_scroll.take(event);
    if (m_scroll.isGoingOn())
        m_clock->startRepeating(event.phase() == Qt::NoScrollPhase ? kScrollPause : kLostEnd,
                                [this] { endPaused(); });
    else
        m_clock->stop();
    play(steps);
}

void GestureInput::endPaused()
{
    const auto alive = m_core.owner.lock();
    m_clock->stop();
    forgetCancelled();
    play(m_scroll.end());
}

void GestureInput::play(const TrackpadScroll::Steps& steps)
{
    const unsigned gesture = m_core.gestureNumber();
    for (const TrackpadScroll::Step& step : steps) {
        if (!m_core.isOpen() || gesture != m_core.gestureNumber())
            return;
        if (step.kind == TrackpadScroll::Kind::Pan)
            pan(step.state, step.delta);
        else
            pinch(step.state, m_scrolledAt, step.factor);
    }
}

bool GestureInput::native(const QNativeGestureEvent& event)
{
    forgetCancelled();
    const auto centre = Vetra::fromQt(event.localPos());
    switch (event.gestureType()) {
    case Qt::BeginNativeGesture:
        return true; // of what, only the next one tells
    case Qt::EndNativeGesture:
        endNative(centre);
        return true;
    case Qt::ZoomNativeGesture:
        beginNative(centre);
        if (m_core.isOpen())
            pinch(GestureState::GestureUpdated, centre, 1 + event.value());
        return true;
    case Qt::RotateNativeGesture:
        beginNative(centre);
        if (m_core.isOpen())
            pinch(GestureState::GestureUpdated, centre, 1, event.value());
        return true;
    case Qt::SmartZoomNativeGesture:
        beginNative(centre);
        if (m_core.isOpen())
            pinch(GestureState::GestureUpdated, centre, event.value() > 0 ? 2 : 0.5);
        endNative(centre);
        return true;
    default:
        return false;
    }
}

void GestureInput::beginNative(const Vetra::GLPoint<double>& centre)
{
    if (!std::exchange(m_isNativePinch, true))
        pinch(GestureState::GestureStarted, centre);
}

void GestureInput::endNative(const Vetra::GLPoint<double>& centre)
{
    if (m_core.isOpen() && std::exchange(m_isNativePinch, false))
        pinch(GestureState::GestureFinished, centre);
}

bool GestureInput::recognised(QGestureEvent& event)
{
    const QGesture* const panning = event.gesture(Qt::PanGesture);
    const QGesture* const pinching = event.gesture(Qt::PinchGesture);
    if (!panning && !pinching)
        return false;
    event.accept();
    if (panning)
        toolkitPan(static_cast<const QPanGesture&>(*panning));
    if (pinching && m_core.isOpen())
        toolkitPinch(static_cast<const QPinchGesture&>(*pinching));
    return true;
}

void GestureInput::toolkitPan(const QPanGesture& gesture)
{
    pan(Vetra::fromQt(gesture.state()), Vetra::fromQt(gesture.delta()), gesture.acceleration());
}

void GestureInput::toolkitPinch(const QPinchGesture& gesture)
{
    // On the desktop, unlike all else.
    const QPointF origin = m_core.viewport().mapToGlobal(QPoint());
    pinch(Vetra::fromQt(gesture.state()), Vetra::fromQt(gesture.centerPoint() - origin),
          gesture.scaleFactor(), gesture.rotationAngle() - gesture.lastRotationAngle());
}

} // namespace Tova2
