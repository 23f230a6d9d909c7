// What the driver does of drag and drop.
#include "tova/events/dragevent.h"
#include "tova/events/eventcanvas.h"
#include "tova/events/eventerrors.h"
#include "tova/events/eventhandler.h"
#include "tova/events/eventtestdriver.h"
#include "tova/events/eventtype.h"
#include "tova/events/itoolstack.h"

#include <QScopeGuard>

namespace Tova2 {

namespace {

/// More than what counts as a click, in any direction.
constexpr double kDragStart = 5;

Vetra::DropAction preferred(Vetra::DropActions actions)
{
    for (const auto action :
         {Vetra::DropAction::Move, Vetra::DropAction::Copy, Vetra::DropAction::Link}) {
        if (actions.has(action))
            return action;
    }
    return Vetra::DropAction::Ignore;
}

} // namespace

void EventTestDriver::beginDrag(const Place& from, Vetra::EventSource* source,
                                const Vetra::GLMimeData& data, Vetra::DropActions actions)
{
    if (m_isDragging)
        endDrag();
    moveTo(from);
    press();
    moveTo(Vetra::GLPoint<double>{from.point.x + kDragStart, from.point.y + kDragStart});
    pointAt(from.point);
    sendMouse(EventType::UserDragInitEvent, Vetra::MouseButton::LeftButton);
    if (auto* const tools = hasLostCanvas() ? nullptr : dynamic_cast<IToolStack*>(&m_receiver))
        tools->cancelAllTools();
    m_isDragging = true;
    m_dragSource = source;
    m_dragData = data;
    m_dragActions = actions;
}

Vetra::DropAction EventTestDriver::dragTo(const Place& place)
{
    requireDrag();
    pointAt(place.point);
    if (!m_isDragOverCanvas) {
        m_isDragOverCanvas = true;
        sendDrag(EventType::DragEnterEvent);
    }
    return sendDrag(EventType::DragEvent);
}

Vetra::DropAction EventTestDriver::drop(const Place& place)
{
    requireDrag();
    if (!m_dragSource)
        raise(EventError::BadDraggingSource);
    dragTo(place);
    const auto end = qScopeGuard([this] { forgetDrag(); });
    return sendDrag(EventType::DropEvent);
}

void EventTestDriver::endDrag()
{
    requireDrag();
    const bool leaves = m_isDragOverCanvas;
    forgetDrag();
    if (leaves)
        sendWidget(EventType::DragLeaveEvent);
}

Vetra::DropAction EventTestDriver::dropFromOutside(const Place& place,
                                                   const Vetra::GLMimeData& data,
                                                   Vetra::DropActions actions)
{
    if (m_isDragging)
        endDrag();
    m_isDragging = true;
    m_dragData = data;
    m_dragActions = actions;
    dragTo(place);
    const auto end = qScopeGuard([this] { forgetDrag(); });
    return sendDrag(EventType::DropEvent);
}

Vetra::DropAction EventTestDriver::sendDrag(EventType type)
{
    DragEvent event(type, canvas(), m_dragSource, m_dragData, pixel(), m_buttons, m_modifiers,
                    m_dragActions, preferred(m_dragActions));
    send(event);
    return event.dropAction();
}

void EventTestDriver::requireDrag() const
{
    if (!m_isDragging)
        raise(EventError::BadDragDropOutsideUsecase);
}

void EventTestDriver::forgetDrag()
{
    m_isDragging = false;
    m_isDragOverCanvas = false;
    m_dragSource = nullptr;
    m_dragData = {};
    // The toolkit swallows the release that ends a drag.
    m_buttons = {};
}

} // namespace Tova2
