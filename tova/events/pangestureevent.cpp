#include "tova/events/pangestureevent.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/eventerrors.h"
#include "tova/events/eventhandler.h"
#include "vetra/inputnames.h"

namespace Tova2 {

PanGestureEvent::PanGestureEvent(EventType type, const Vetra::GLPanGestureEvent2& event)
    : Event(type, event.widget), Vetra::GLPanGestureEvent2(event)
{}

PanGestureEvent::PanGestureEvent(EventType type, EventCanvas* canvas, Vetra::GestureType kind,
                                 Vetra::GestureState state, const Vetra::GLPoint<double>& moved,
                                 double speedUp)
    : PanGestureEvent(type, {canvas, kind, state, moved, speedUp})
{}

void PanGestureEvent::internalAccept(EventHandler& handler)
{
    if (type() != EventType::PanGestureEvent)
        raise(EventError::UnrecognizedEvent);
    handler.handlePanGestureEvent(*this);
}

void PanGestureEvent::appendDetails(std::string& text) const
{
    text += " state: ";
    text += nameOf(gestureState);
    text += " delta: " + Vetra::textOf(delta);
    text += " with acceleration: " + Vetra::textOf(acceleration);
}

} // namespace Tova2
