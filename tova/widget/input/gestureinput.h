#pragma once

#include "tova/events/gestureclock.h"
#include "vetra/inputenums.h"
#include "widget/input/trackpadscroll.h"
#include "widget/input/wheelnotches.h"

#include <QNativeGestureEvent>
#include <QWheelEvent>

#include <memory>

class QGestureEvent;
class QPanGesture;
class QPinchGesture;

namespace Tova2 {

class DispatchCore;

/// Wheels, trackpads, and the gestures that the toolkit or the system has recognised. Positions are
/// view pixels.
class GestureInput {
public:
    GestureInput(DispatchCore& core, std::unique_ptr<GestureClock> clock);

    void wheel(const QWheelEvent& event);
    /// False for one that means nothing here.
    bool native(const QNativeGestureEvent& event);
    bool recognised(QGestureEvent& event);

    // Changes are those since the last event.

    void pan(Vetra::GestureState state, const Vetra::GLPoint<double>& delta = {},
             double acceleration = 0);
    void pinch(Vetra::GestureState state, const Vetra::GLPoint<double>& centre, double factor = 1,
               double degrees = 0);

private:
    void turn(const QWheelEvent& event);
    void scroll(const QWheelEvent& event);
    void play(const TrackpadScroll::Steps& steps);
    void endPaused();
    void forgetCancelled();
    void beginNative(const Vetra::GLPoint<double>& centre);
    void endNative(const Vetra::GLPoint<double>& centre);
    void toolkitPan(const QPanGesture& gesture);
    void toolkitPinch(const QPinchGesture& gesture);

    DispatchCore& m_core;
    std::unique_ptr<GestureClock> m_clock;
    WheelNotches m_notches;
    TrackpadScroll m_scroll;
    Vetra::GLPoint<double> m_scrolledAt{};
    unsigned m_gesture = 0; ///< number of the one that the state here belongs to
    bool m_isNativePinch = false;
};

} // namespace Tova2
