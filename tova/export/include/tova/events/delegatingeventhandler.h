#pragma once

#include "tova/events/eventhandler.h"
#include "tova/typename.h"

namespace Tova2 {

/// Passes every event on to another handler, the delegate, when there is one. It does not own it.
class TOVA_EXPORT DelegatingEventHandler : public EventHandler {
public:
    void handleMouseMoveEvent(MouseEvent& event) override;
    void handleMousePressEvent(MouseEvent& event) override;
    void handleMouseReleaseEvent(MouseEvent& event) override;
    void handleMouseDoubleClickEvent(MouseEvent& event) override;
    void handleHoverEnterEvent(MouseEvent& event) override;
    void handleHoverExitEvent(MouseEvent& event) override;
    void handleUserDragInitEvent(MouseEvent& event) override;
    void handleDragEnterEvent(DragEvent& event) override;
    void handleDragLeaveEvent(WidgetEvent& event) override;
    void handleDragEvent(DragEvent& event) override;
    void handleDropEvent(DragEvent& event) override;
    void handleFocusInEvent(FocusEvent& event) override;
    void handleFocusOutEvent(FocusEvent& event) override;
    void handleEnterCanvasEvent(WidgetEvent& event) override;
    void handleLeaveCanvasEvent(WidgetEvent& event) override;
    void handleContextMenuEvent(ContextMenuEvent& event) override;
    void handleWheelEvent(MouseEvent& event) override;
    void handleKeyPressEvent(KeyEvent& event) override;
    void handleKeyReleaseEvent(KeyEvent& event) override;
    void handleInputMethodEvent(InputMethodEvent& event) override;
    void handlePanGestureEvent(PanGestureEvent& event) override;
    void handlePinchGestureEvent(PinchGestureEvent& event) override;

protected:
    EventHandler* eventHandlerDelegate() const noexcept { return m_delegate; }
    /// Null ends the delegation. The delegate must be taken out before it dies.
    void setEventHandlerDelegate(EventHandler* delegate) noexcept { m_delegate = delegate; }

private:
    EventHandler* m_delegate = nullptr;

    TOVA_DERIVED_TYPE("Tova2.DelegatingEventHandler", EventHandler);
};

} // namespace Tova2
