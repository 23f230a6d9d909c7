#pragma once

#include "tova/tova_export.h"

#include <cstdint>

namespace Tova2 {

/// What happened. The class of an event that carries each is named in the comment.
enum class EventType : std::uint32_t {
    NullEvent = 0,
    MousePressEvent = 1,       ///< MouseEvent
    MouseDoubleClickEvent = 2, ///< MouseEvent
    MouseMoveEvent = 3,        ///< MouseEvent
    MouseReleaseEvent = 4,     ///< MouseEvent
    PanGestureEvent = 5,
    PinchGestureEvent = 6,
    WheelEvent = 7,        ///< MouseEvent
    UserDragInitEvent = 8, ///< MouseEvent
    DragEnterEvent = 9,    ///< DragEvent
    DragLeaveEvent = 10,   ///< WidgetEvent
    DragEvent = 11,
    DropEvent = 12,       ///< DragEvent
    KeyPressEvent = 13,   ///< KeyEvent
    KeyReleaseEvent = 14, ///< KeyEvent
    InputMethodEvent = 15,
    ContextMenuEvent = 16,
    HoverEvent = 17,       ///< MouseEvent; the scene delivers it, `Event::accept` does not
    FocusInEvent = 18,     ///< FocusEvent
    FocusOutEvent = 19,    ///< FocusEvent
    EnterCanvasEvent = 20, ///< WidgetEvent
    LeaveCanvasEvent = 21  ///< WidgetEvent
};

/// The enumerator's name; "NullEvent" for a number that is none.
TOVA_EXPORT const char* nameOf(EventType type) noexcept;

} // namespace Tova2
