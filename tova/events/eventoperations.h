#pragma once

/// The operations of an event handler with what each is called with, in the order of their slots:
/// for those that treat all alike.
#define TOVA_EVENT_OPERATIONS(X)                                                                   \
    X(handleMouseMoveEvent, MouseEvent)                                                            \
    X(handleMousePressEvent, MouseEvent)                                                           \
    X(handleMouseReleaseEvent, MouseEvent)                                                         \
    X(handleMouseDoubleClickEvent, MouseEvent)                                                     \
    X(handleHoverEnterEvent, MouseEvent)                                                           \
    X(handleHoverExitEvent, MouseEvent)                                                            \
    X(handleUserDragInitEvent, MouseEvent)                                                         \
    X(handleDragEnterEvent, DragEvent)                                                             \
    X(handleDragLeaveEvent, WidgetEvent)                                                           \
    X(handleDragEvent, DragEvent)                                                                  \
    X(handleDropEvent, DragEvent)                                                                  \
    X(handleFocusInEvent, FocusEvent)                                                              \
    X(handleFocusOutEvent, FocusEvent)                                                             \
    X(handleEnterCanvasEvent, WidgetEvent)                                                         \
    X(handleLeaveCanvasEvent, WidgetEvent)                                                         \
    X(handleContextMenuEvent, ContextMenuEvent)                                                    \
    X(handleWheelEvent, MouseEvent)                                                                \
    X(handleKeyPressEvent, KeyEvent)                                                               \
    X(handleKeyReleaseEvent, KeyEvent)                                                             \
    X(handleInputMethodEvent, InputMethodEvent)                                                    \
    X(handlePanGestureEvent, PanGestureEvent)                                                      \
    X(handlePinchGestureEvent, PinchGestureEvent)
