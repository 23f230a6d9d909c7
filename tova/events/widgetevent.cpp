#include "tova/events/widgetevent.h"

#include "events/eventroutes.h"

#include "tova/events/eventcanvas.h"

namespace Tova2 {

WidgetEvent::WidgetEvent(EventType type) : WidgetEvent(type, {}) {}

WidgetEvent::WidgetEvent(EventType type, const Vetra::GLWidgetEvent2& event)
    : Event(type, event.widget), m_event(event)
{}

void WidgetEvent::internalAccept(EventHandler& handler)
{
    static constexpr EventRoute<WidgetEvent> routes[]{
        {EventType::DragLeaveEvent, &EventHandler::handleDragLeaveEvent},
        {EventType::EnterCanvasEvent, &EventHandler::handleEnterCanvasEvent},
        {EventType::LeaveCanvasEvent, &EventHandler::handleLeaveCanvasEvent},
    };
    callRouted(routes, *this, handler);
}

} // namespace Tova2
