#include "tova/events/pinchgestureevent.h"

#include "events/canvasmapping.h"

#include "tova/events/eventerrors.h"
#include "tova/events/eventhandler.h"
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
    if (type() != EventType::PinchGestureEvent)
        raise(EventError::UnrecognizedEvent);
    handler.handlePinchGestureEvent(*this);
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
