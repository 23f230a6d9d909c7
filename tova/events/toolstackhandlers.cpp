#include "events/toolstack.h"

#include "events/toolstackcore.h"
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

void ToolStack::handleMouseMoveEvent(MouseEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleMousePressEvent(MouseEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleMouseReleaseEvent(MouseEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleMouseDoubleClickEvent(MouseEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleHoverEnterEvent(MouseEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleHoverExitEvent(MouseEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleUserDragInitEvent(MouseEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleDragEnterEvent(DragEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleDragLeaveEvent(WidgetEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleDragEvent(DragEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleDropEvent(DragEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleFocusInEvent(FocusEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleFocusOutEvent(FocusEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleEnterCanvasEvent(WidgetEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleLeaveCanvasEvent(WidgetEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleContextMenuEvent(ContextMenuEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleWheelEvent(MouseEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleInputMethodEvent(InputMethodEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handlePanGestureEvent(PanGestureEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handlePinchGestureEvent(PinchGestureEvent& event)
{
    m_core->dispatch(event, false);
}

void ToolStack::handleKeyPressEvent(KeyEvent& event)
{
    m_core->pressKey(event);
}

void ToolStack::handleKeyReleaseEvent(KeyEvent& event)
{
    m_core->releaseKey(event);
}

} // namespace Tova2
