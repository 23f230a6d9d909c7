#include "tova/events/delegatingeventhandler.h"

namespace Tova2 {

template <class E>
void DelegatingEventHandler::passOn(void (EventHandler::*operation)(E&), E& event)
{
    if (m_delegate)
        (m_delegate->*operation)(event);
}

void DelegatingEventHandler::handleMouseMoveEvent(MouseEvent& event)
{
    passOn(&EventHandler::handleMouseMoveEvent, event);
}
void DelegatingEventHandler::handleMousePressEvent(MouseEvent& event)
{
    passOn(&EventHandler::handleMousePressEvent, event);
}
void DelegatingEventHandler::handleMouseReleaseEvent(MouseEvent& event)
{
    passOn(&EventHandler::handleMouseReleaseEvent, event);
}
void DelegatingEventHandler::handleMouseDoubleClickEvent(MouseEvent& event)
{
    passOn(&EventHandler::handleMouseDoubleClickEvent, event);
}
void DelegatingEventHandler::handleHoverEnterEvent(MouseEvent& event)
{
    passOn(&EventHandler::handleHoverEnterEvent, event);
}
void DelegatingEventHandler::handleHoverExitEvent(MouseEvent& event)
{
    passOn(&EventHandler::handleHoverExitEvent, event);
}
void DelegatingEventHandler::handleUserDragInitEvent(MouseEvent& event)
{
    passOn(&EventHandler::handleUserDragInitEvent, event);
}
void DelegatingEventHandler::handleDragEnterEvent(DragEvent& event)
{
    passOn(&EventHandler::handleDragEnterEvent, event);
}
void DelegatingEventHandler::handleDragLeaveEvent(WidgetEvent& event)
{
    passOn(&EventHandler::handleDragLeaveEvent, event);
}
void DelegatingEventHandler::handleDragEvent(DragEvent& event)
{
    passOn(&EventHandler::handleDragEvent, event);
}
void DelegatingEventHandler::handleDropEvent(DragEvent& event)
{
    passOn(&EventHandler::handleDropEvent, event);
}
void DelegatingEventHandler::handleFocusInEvent(FocusEvent& event)
{
    passOn(&EventHandler::handleFocusInEvent, event);
}
void DelegatingEventHandler::handleFocusOutEvent(FocusEvent& event)
{
    passOn(&EventHandler::handleFocusOutEvent, event);
}
void DelegatingEventHandler::handleEnterCanvasEvent(WidgetEvent& event)
{
    passOn(&EventHandler::handleEnterCanvasEvent, event);
}
void DelegatingEventHandler::handleLeaveCanvasEvent(WidgetEvent& event)
{
    passOn(&EventHandler::handleLeaveCanvasEvent, event);
}
void DelegatingEventHandler::handleContextMenuEvent(ContextMenuEvent& event)
{
    passOn(&EventHandler::handleContextMenuEvent, event);
}
void DelegatingEventHandler::handleWheelEvent(MouseEvent& event)
{
    passOn(&EventHandler::handleWheelEvent, event);
}
void DelegatingEventHandler::handleKeyPressEvent(KeyEvent& event)
{
    passOn(&EventHandler::handleKeyPressEvent, event);
}
void DelegatingEventHandler::handleKeyReleaseEvent(KeyEvent& event)
{
    passOn(&EventHandler::handleKeyReleaseEvent, event);
}
void DelegatingEventHandler::handleInputMethodEvent(InputMethodEvent& event)
{
    passOn(&EventHandler::handleInputMethodEvent, event);
}
void DelegatingEventHandler::handlePanGestureEvent(PanGestureEvent& event)
{
    passOn(&EventHandler::handlePanGestureEvent, event);
}
void DelegatingEventHandler::handlePinchGestureEvent(PinchGestureEvent& event)
{
    passOn(&EventHandler::handlePinchGestureEvent, event);
}

} // namespace Tova2
