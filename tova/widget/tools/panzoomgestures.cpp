// Fingers on a touch pad or a screen.

#include "tova/events/pangestureevent.h"
#include "tova/events/pinchgestureevent.h"
#include "tova/widget/glcanvas.h"
#include "tova/widget/panzoomtool.h"

#include <cmath>
#include <utility>

namespace Tova2 {

using Vetra::GestureState;

namespace {

using Clock = std::chrono::steady_clock;

/// Fingers that rested for so long before they were lifted do not fling.
constexpr std::chrono::milliseconds kRest{100};
/// Nor do those that have pinched: a change of scale by so much, as a logarithm.
constexpr double kPinched = 0.05;

bool isLast(GestureState state)
{
    return state == GestureState::GestureFinished || state == GestureState::GestureCanceled;
}

} // namespace

// A step whose beginning went by unseen, or that has none, moves the view and claims nothing: its
// end may never come.

void PanZoomTool::handlePanGestureEvent(PanGestureEvent& event)
{
    GLCanvas* const canvas = GLCanvas::of(event);
    if (!canvas)
        return;
    event.consume();
    const GestureState state = event.gestureState;
    noteGesture(m_isPanGesture, state, *canvas);
    if (state != GestureState::GestureCanceled)
        followFingers(event.delta);
    const bool isFlung = m_isPanGesture && state == GestureState::GestureFinished &&
                         m_fingers.pinched < kPinched && Clock::now() - m_fingers.movedAt < kRest;
    if (isLast(state))
        endGesture(m_isPanGesture);
    if (isFlung && !isInGesture())
        m_momentum.beginMomentumNotifications();
}

void PanZoomTool::followFingers(const Vetra::GLPoint<double>& way)
{
    follow(way);
    if (way != Vetra::GLPoint<double>{})
        m_fingers.movedAt = Clock::now();
    m_fingers.point += way;
    if (m_isPanGesture)
        m_momentum.sampleLocation(m_fingers.point);
}

void PanZoomTool::handlePinchGestureEvent(PinchGestureEvent& event)
{
    GLCanvas* const canvas = GLCanvas::of(event);
    if (!canvas)
        return;
    event.consume();
    const GestureState state = event.gestureState;
    noteGesture(m_isPinching, state, *canvas);
    if (state != GestureState::GestureCanceled)
        zoomBy(event.scaleFactor, event.scenePos());
    if (isLast(state))
        endGesture(m_isPinching);
}

void PanZoomTool::zoomBy(double factor, const Vetra::GLPoint<double>& scenePoint)
{
    if (!m_canvas || !(factor > 0) || !std::isfinite(factor))
        return;
    m_fingers.pinched += std::abs(std::log(factor));
    m_canvas->setScaleAroundScenePointWithReason(m_canvas->getScale() * factor, scenePoint,
                                                 ZoomReason::Source::Pinch);
}

void PanZoomTool::noteGesture(bool& kind, GestureState state, GLCanvas& canvas)
{
    setCanvas(&canvas);
    stopGliding();
    if (state != GestureState::GestureStarted)
        return;
    claim(kind);
    m_fingers = {};
    m_behind = {};
    m_momentum.resetSampling();
    m_momentum.sampleLocation(m_fingers.point);
}

void PanZoomTool::endGesture(bool& kind)
{
    if (std::exchange(kind, false) && !m_isPanning)
        rest();
}

} // namespace Tova2
