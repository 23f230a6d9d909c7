#include "tova/events/pangestureevent.h"

#include "events/eventroutes.h"

#include "tova/events/eventcanvas.h"
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
    static constexpr EventRoute<PanGestureEvent> routes[]{
        {EventType::PanGestureEvent, &EventHandler::handlePanGestureEvent},
    };
    callRouted(routes, *this, handler);
}

void PanGestureEvent::appendDetails(std::string& text) const
{
    text += " state: ";
    text += nameOf(gestureState);
    text += " delta: " + Vetra::textOf(delta);
    text += " with acceleration: " + Vetra::textOf(acceleration);
}

} // namespace Tova2
