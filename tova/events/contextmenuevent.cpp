#include "tova/events/contextmenuevent.h"

#include "events/canvasmapping.h"
#include "events/eventroutes.h"

#include "vetra/inputnames.h"

namespace Tova2 {

ContextMenuEvent::ContextMenuEvent(EventType type) : ContextMenuEvent(type, {}) {}

ContextMenuEvent::ContextMenuEvent(EventType type, const Vetra::GLContextMenuEvent2& event)
    : Event(type, event.widget), m_event(event)
{}

Vetra::GLPoint<double> ContextMenuEvent::scenePos() const
{
    return toScene(canvas(), m_event.position);
}

void ContextMenuEvent::internalAccept(EventHandler& handler)
{
    static constexpr EventRoute<ContextMenuEvent> routes[]{
        {EventType::ContextMenuEvent, &EventHandler::handleContextMenuEvent},
    };
    callRouted(routes, *this, handler);
}

void ContextMenuEvent::appendDetails(std::string& text) const
{
    text += " at: " + Vetra::textOf(scenePos());
}

} // namespace Tova2
