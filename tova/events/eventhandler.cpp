#include "tova/events/eventhandler.h"

namespace Tova2 {

EventHandler::~EventHandler() = default;

void EventHandler::handleMouseMoveEvent(MouseEvent&) {}
void EventHandler::handleMousePressEvent(MouseEvent&) {}
void EventHandler::handleMouseReleaseEvent(MouseEvent&) {}
void EventHandler::handleMouseDoubleClickEvent(MouseEvent&) {}
void EventHandler::handleHoverEnterEvent(MouseEvent&) {}
void EventHandler::handleHoverExitEvent(MouseEvent&) {}
void EventHandler::handleUserDragInitEvent(MouseEvent&) {}
void EventHandler::handleDragEnterEvent(DragEvent&) {}
void EventHandler::handleDragLeaveEvent(WidgetEvent&) {}
void EventHandler::handleDragEvent(DragEvent&) {}
void EventHandler::handleDropEvent(DragEvent&) {}
void EventHandler::handleFocusInEvent(FocusEvent&) {}
void EventHandler::handleFocusOutEvent(FocusEvent&) {}
void EventHandler::handleEnterCanvasEvent(WidgetEvent&) {}
void EventHandler::handleLeaveCanvasEvent(WidgetEvent&) {}
void EventHandler::handleContextMenuEvent(ContextMenuEvent&) {}
void EventHandler::handleWheelEvent(MouseEvent&) {}
void EventHandler::handleKeyPressEvent(KeyEvent&) {}
void EventHandler::handleKeyReleaseEvent(KeyEvent&) {}
void EventHandler::handleInputMethodEvent(InputMethodEvent&) {}
void EventHandler::handlePanGestureEvent(PanGestureEvent&) {}
void EventHandler::handlePinchGestureEvent(PinchGestureEvent&) {}

} // namespace Tova2
