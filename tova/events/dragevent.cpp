#include "tova/events/dragevent.h"

#include "events/canvasmapping.h"
#include "events/eventroutes.h"

#include "vetra/inputnames.h"

namespace Tova2 {

DragEvent::DragEvent(EventType type, const Vetra::GLDragEvent2& event, bool isSynthetic)
    : Event(type, event.widget, isSynthetic), m_event(event)
{}

DragEvent::DragEvent(EventType type, EventCanvas* canvas, Vetra::EventSource* sourceWidget,
                     const Vetra::GLMimeData& mimeData, const Vetra::GLPoint<int>& position,
                     Vetra::MouseButtons buttons, Vetra::Modifiers modifiers,
                     Vetra::DropActions possibleActions, Vetra::DropAction proposedAction)
    : Event(type, canvas), m_event{canvas,  sourceWidget, mimeData,        position,
                                   buttons, modifiers,    possibleActions, proposedAction}
{}

Vetra::GLPoint<double> DragEvent::scenePos() const
{
    return toScene(canvas(), m_event.position);
}

void DragEvent::setDropAction(Vetra::DropAction action) noexcept
{
    m_dropAction = m_event.possibleActions.has(action) ? action : Vetra::DropAction::Ignore;
}

void DragEvent::internalAccept(EventHandler& handler)
{
    static constexpr EventRoute<DragEvent> routes[]{
        {EventType::DragEnterEvent, &EventHandler::handleDragEnterEvent},
        {EventType::DragEvent, &EventHandler::handleDragEvent},
        {EventType::DropEvent, &EventHandler::handleDropEvent},
    };
    callRouted(routes, *this, handler);
}

void DragEvent::appendDetails(std::string& text) const
{
    text += " at: " + Vetra::textOf(scenePos());
}

} // namespace Tova2
