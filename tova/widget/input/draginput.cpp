#include "widget/input/draginput.h"

#include "widget/input/dispatchcore.h"
#include "widget/input/dispatchhost.h"

#include "tova/events/dragevent.h"
#include "tova/events/eventcanvas.h"
#include "tova/events/widgetevent.h"
#include "vetra/qtevents.h"

#include <utility>

namespace Tova2 {

void DragInput::enter(QDragEnterEvent& event)
{
    leave();
    if (!m_core.isOpen())
        return;
    begin(event);
    ask(EventType::DragEnterEvent, event);
    event.accept();
}

void DragInput::move(QDragMoveEvent& event)
{
    if (!m_isInside) { // the scene has been exchanged, or the canvas enabled
        begin(event);
        if (!ask(EventType::DragEnterEvent, event) || !m_core.isOpen())
            return;
    }
    ask(EventType::DragEvent, event);
}

void DragInput::drop(QDropEvent& event)
{
    if (!m_isInside) {
        event.ignore();
        return;
    }
    ask(EventType::DropEvent, event);
    m_isInside = false;
    forget();
}

void DragInput::leave()
{
    if (!std::exchange(m_isInside, false))
        return;
    forget();
    WidgetEvent event(EventType::DragLeaveEvent, {&m_core.canvas()});
    m_core.send(event);
}

void DragInput::begin(const QDropEvent& event)
{
    m_isInside = true;
    DispatchCore* const source = DispatchCore::ofViewport(event.source());
    m_source = source ? &source->canvas() : nullptr;
    m_isOwn = source == &m_core;
    m_core.guard([&] { readData(event, source); });
}

void DragInput::readData(const QDropEvent& event, DispatchCore* source)
{
    m_data = {};
    if (!event.mimeData())
        return;
    auto formats = m_core.host().dropFormats();
    const auto offered = source ? source->host().dragData().formats() : std::vector<std::string>();
    formats.insert(formats.end(), offered.begin(), offered.end());
    m_data = Vetra::fromQt(*event.mimeData(), formats);
    if (!m_isOwn)
        m_core.host().setDragData(m_data);
}

/// Tells the toolkit what handlers say a drop would do. False when they have thrown, or ended it.
bool DragInput::ask(EventType type, QDropEvent& event)
{
    DragEvent drag(type, Vetra::fromQt(event, &m_core.canvas(), m_source, m_data));
    const bool goesOn = m_core.send(drag);
    const auto action = goesOn ? drag.dropAction() : Vetra::DropAction::Ignore;
    event.setDropAction(Vetra::toQt(action));
    event.setAccepted(action != Vetra::DropAction::Ignore);
    return goesOn && m_isInside;
}

void DragInput::forget()
{
    m_data = {};
    m_source = nullptr;
    if (!m_isOwn && m_core.isOpen())
        m_core.guard([&] { m_core.host().setDragData({}); });
}

} // namespace Tova2
