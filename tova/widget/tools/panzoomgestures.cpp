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
        translateWithSoftLimits(event.delta.x, event.delta.y, false);
    m_gesturePoint += event.delta;
    const bool isFlung = m_isPanGesture && state == GestureState::GestureFinished;
    if (isLast(state))
        endGesture(m_isPanGesture);
    if (isFlung)
        fling(m_gesturePoint);
    else if (m_isPanGesture)
        m_momentum.sampleLocation(m_gesturePoint);
}

void PanZoomTool::handlePinchGestureEvent(PinchGestureEvent& event)
{
    GLCanvas* const canvas = GLCanvas::of(event);
    if (!canvas)
        return;
    event.consume();
    const GestureState state = event.gestureState;
    noteGesture(m_isPinching, state, *canvas);
    const double factor = event.scaleFactor;
    if (state != GestureState::GestureCanceled && factor > 0 && std::isfinite(factor))
        canvas->setScaleAroundScenePointWithReason(canvas->getScale() * factor, event.scenePos(),
                                                   ZoomReason::Source::Pinch);
    if (isLast(state))
        endGesture(m_isPinching);
}

void PanZoomTool::noteGesture(bool& kind, GestureState state, GLCanvas& canvas)
{
    setCanvas(&canvas);
    m_momentum.endMomentumNotifications();
    if (state != GestureState::GestureStarted)
        return;
    claim(kind);
    m_gesturePoint = {};
    m_momentum.resetSampling();
    m_momentum.sampleLocation(m_gesturePoint);
}

void PanZoomTool::endGesture(bool& kind)
{
    if (std::exchange(kind, false) && !m_isPanning)
        rest();
}

} // namespace Tova2
