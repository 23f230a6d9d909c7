#include "tova/events/eventtype.h"

#include <array>

namespace Tova2 {

namespace {

constexpr std::array names{
    "NullEvent",         "MousePressEvent",  "MouseDoubleClickEvent", "MouseMoveEvent",
    "MouseReleaseEvent", "PanGestureEvent",  "PinchGestureEvent",     "WheelEvent",
    "UserDragInitEvent", "DragEnterEvent",   "DragLeaveEvent",        "DragEvent",
    "DropEvent",         "KeyPressEvent",    "KeyReleaseEvent",       "InputMethodEvent",
    "ContextMenuEvent",  "HoverEvent",       "FocusInEvent",          "FocusOutEvent",
    "EnterCanvasEvent",  "LeaveCanvasEvent",
};
static_assert(names.size() == static_cast<std::size_t>(EventType::LeaveCanvasEvent) + 1);

} // namespace

const char* nameOf(EventType type) noexcept
{
    const auto index = static_cast<std::size_t>(type);
    return index < names.size() ? names[index] : names.front();
}

} // namespace Tova2
