#include "tova/events/dragevent.h"

#include "events/canvasmapping.h"

#include "tova/events/eventerrors.h"
#include "tova/events/eventhandler.h"
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
    switch (type()) {
    case EventType::DragEnterEvent:
        return handler.handleDragEnterEvent(*this);
    case EventType::DragEvent:
        return handler.handleDragEvent(*this);
    case EventType::DropEvent:
        return handler.handleDropEvent(*this);
    default:
        raise(EventError::UnrecognizedEvent);
    }
}

void DragEvent::appendDetails(std::string& text) const
{
    text += " at: " + Vetra::textOf(scenePos());
}

} // namespace Tova2
