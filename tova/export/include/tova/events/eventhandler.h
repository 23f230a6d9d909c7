#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

class ContextMenuEvent;
class DragEvent;
class FocusEvent;
class InputMethodEvent;
class KeyEvent;
class MouseEvent;
class PanGestureEvent;
class PinchGestureEvent;
class WidgetEvent;

/// Receives events, one operation a kind; each does nothing unless overridden. A handler that wants
/// nobody after it to see an event consumes it.
class TOVA_EXPORT EventHandler {
public:
    EventHandler() = default;
    EventHandler(const EventHandler&) = default;
    EventHandler& operator=(const EventHandler&) = default;
    virtual ~EventHandler();

    // The order is part of the interface: add new operations at the end.
    virtual void handleMouseMoveEvent(MouseEvent& event);
    virtual void handleMousePressEvent(MouseEvent& event);
    virtual void handleMouseReleaseEvent(MouseEvent& event);
    virtual void handleMouseDoubleClickEvent(MouseEvent& event);
    virtual void handleHoverEnterEvent(MouseEvent& event);
    virtual void handleHoverExitEvent(MouseEvent& event);
    virtual void handleUserDragInitEvent(MouseEvent& event);
    virtual void handleDragEnterEvent(DragEvent& event);
    virtual void handleDragLeaveEvent(WidgetEvent& event);
    virtual void handleDragEvent(DragEvent& event);
    virtual void handleDropEvent(DragEvent& event);
    virtual void handleFocusInEvent(FocusEvent& event);
    virtual void handleFocusOutEvent(FocusEvent& event);
    virtual void handleEnterCanvasEvent(WidgetEvent& event);
    virtual void handleLeaveCanvasEvent(WidgetEvent& event);
    virtual void handleContextMenuEvent(ContextMenuEvent& event);
    virtual void handleWheelEvent(MouseEvent& event);
    virtual void handleKeyPressEvent(KeyEvent& event);
    virtual void handleKeyReleaseEvent(KeyEvent& event);
    virtual void handleInputMethodEvent(InputMethodEvent& event);
    virtual void handlePanGestureEvent(PanGestureEvent& event);
    virtual void handlePinchGestureEvent(PinchGestureEvent& event);

    TOVA_BASE_TYPE("Tova2.EventHandler");
};

} // namespace Tova2
