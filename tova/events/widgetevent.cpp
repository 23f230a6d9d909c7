#include "tova/events/widgetevent.h"

#include "tova/events/eventcanvas.h"
#include "tova/events/eventerrors.h"
#include "tova/events/eventhandler.h"

namespace Tova2 {

WidgetEvent::WidgetEvent(EventType type) : WidgetEvent(type, {}) {}

WidgetEvent::WidgetEvent(EventType type, const Vetra::GLWidgetEvent2& event)
    : Event(type, event.widget), m_event(event)
{}

void WidgetEvent::internalAccept(EventHandler& handler)
{
    switch (type()) {
    case EventType::DragLeaveEvent:
        return handler.handleDragLeaveEvent(*this);
    case EventType::EnterCanvasEvent:
        return handler.handleEnterCanvasEvent(*this);
    case EventType::LeaveCanvasEvent:
        return handler.handleLeaveCanvasEvent(*this);
    default:
        raise(EventError::UnrecognizedEvent);
    }
}

} // namespace Tova2
