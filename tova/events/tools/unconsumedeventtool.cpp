#include "tova/events/unconsumedeventtool.h"

#include "tova/events/contextmenuevent.h"
#include "tova/events/dragevent.h"
#include "tova/events/focusevent.h"
#include "tova/events/inputmethodevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/pangestureevent.h"
#include "tova/events/pinchgestureevent.h"
#include "tova/events/widgetevent.h"

namespace Tova2 {

Vetra::StringID UnconsumedEventTool::staticGetDefaultRole()
{
    static const Vetra::StringID role("UnconsumedEventTool");
    return role;
}

void UnconsumedEventTool::cancel(ECancelReason, const Tool*)
{
    becomeIdle();
}

void UnconsumedEventTool::handleMouseMoveEvent(MouseEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleMousePressEvent(MouseEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleMouseReleaseEvent(MouseEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleMouseDoubleClickEvent(MouseEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleHoverEnterEvent(MouseEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleHoverExitEvent(MouseEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleUserDragInitEvent(MouseEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleDragEnterEvent(DragEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleDragLeaveEvent(WidgetEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleDragEvent(DragEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleDropEvent(DragEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleFocusInEvent(FocusEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleFocusOutEvent(FocusEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleEnterCanvasEvent(WidgetEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleLeaveCanvasEvent(WidgetEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleContextMenuEvent(ContextMenuEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleWheelEvent(MouseEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleKeyPressEvent(KeyEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleKeyReleaseEvent(KeyEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handleInputMethodEvent(InputMethodEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handlePanGestureEvent(PanGestureEvent& event)
{
    m_unconsumed.send(event);
}

void UnconsumedEventTool::handlePinchGestureEvent(PinchGestureEvent& event)
{
    m_unconsumed.send(event);
}

} // namespace Tova2
