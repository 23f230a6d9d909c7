#include "tova/events/mouseevent.h"

#include "events/canvasmapping.h"
#include "events/eventroutes.h"

#include "vetra/inputnames.h"
#include "vetra/saturate.h"

namespace Tova2 {

MouseEvent::MouseEvent(EventType type, const Vetra::GLMouseEvent2& event, bool isSynthetic)
    : Event(type, event.widget, isSynthetic)
    , m_event(event)
    , m_scenePos(toScene(canvas(), event.position))
{
    if (canvas())
        m_viewportTransform = canvas()->getViewportTransform();
}

MouseEvent::MouseEvent(EventType type, EventCanvas* canvas, const Vetra::GLPoint<double>& scenePos,
                       const Vetra::GLPoint<double>& widgetPos,
                       const Vetra::GLPoint<double>& globalPos, int delta,
                       Vetra::MouseButton button, Vetra::MouseButtons buttons,
                       Vetra::Modifiers modifiers, bool isSynthetic, bool isTest)
    : Event(type, canvas, isSynthetic)
    , m_event{canvas,
              Vetra::saturatedInts(widgetPos),
              Vetra::saturatedInts(globalPos),
              delta,
              button,
              buttons,
              modifiers,
              isTest}
    , m_scenePos(scenePos)
{}

MouseEvent MouseEvent::withType(EventType type) const
{
    MouseEvent event(type, canvas(), m_scenePos, {}, {}, 0, {}, {}, {},
                     isSyntheticAutoscrollEvent(), false);
    event.m_event = m_event;
    event.m_viewportTransform = m_viewportTransform;
    return event;
}

MouseEvent MouseEvent::withScenePos(const Vetra::GLPoint<double>& scenePos) const
{
    MouseEvent event = *this;
    event.m_scenePos = scenePos;
    return event;
}

void MouseEvent::internalAccept(EventHandler& handler)
{
    static constexpr EventRoute<MouseEvent> routes[]{
        {EventType::MouseMoveEvent, &EventHandler::handleMouseMoveEvent},
        {EventType::MousePressEvent, &EventHandler::handleMousePressEvent},
        {EventType::MouseReleaseEvent, &EventHandler::handleMouseReleaseEvent},
        {EventType::MouseDoubleClickEvent, &EventHandler::handleMouseDoubleClickEvent},
        {EventType::WheelEvent, &EventHandler::handleWheelEvent},
        {EventType::UserDragInitEvent, &EventHandler::handleUserDragInitEvent},
    };
    callRouted(routes, *this, handler);
}

void MouseEvent::appendDetails(std::string& text) const
{
    text += " for button: ";
    text += nameOf(m_event.button);
    text += " at: " + Vetra::textOf(m_scenePos);
    text += " with modifiers " + namesOf(m_event.modifiers);
}

} // namespace Tova2
