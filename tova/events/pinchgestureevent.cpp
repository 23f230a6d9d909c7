#include "tova/events/pinchgestureevent.h"

#include "events/canvasmapping.h"
#include "events/eventroutes.h"

#include "vetra/inputnames.h"

namespace Tova2 {

PinchGestureEvent::PinchGestureEvent(EventType type, const Vetra::GLPinchGestureEvent2& event)
    : Event(type, event.widget)
    , Vetra::GLPinchGestureEvent2(event)
    , m_scenePos(toScene(canvas(), event.centerPoint))
{}

PinchGestureEvent::PinchGestureEvent(EventType type, EventCanvas* canvas, Vetra::GestureType kind,
                                     Vetra::GestureState state,
                                     const Vetra::GLPoint<double>& center, double scale,
                                     double rotation)
    : PinchGestureEvent(type, {canvas, kind, state, center, scale, rotation})
{}

void PinchGestureEvent::internalAccept(EventHandler& handler)
{
    static constexpr EventRoute<PinchGestureEvent> routes[]{
        {EventType::PinchGestureEvent, &EventHandler::handlePinchGestureEvent},
    };
    callRouted(routes, *this, handler);
}

void PinchGestureEvent::appendDetails(std::string& text) const
{
    text += " at: " + Vetra::textOf(m_scenePos);
    text += " centerPt: " + Vetra::textOf(centerPoint);
    text += " scaleFactor: " + Vetra::textOf(scaleFactor);
    // No blank: whoever reads such logs by program relies on it.
    text += " rotationAngle:" + Vetra::textOf(rotationAngle);
}

} // namespace Tova2
