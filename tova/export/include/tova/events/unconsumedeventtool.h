#pragma once

#include "tova/events/tool.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

/// Bottom of the stack: tells the host of the events that no tool above has taken.
class TOVA_EXPORT UnconsumedEventTool : public Tool {
public:
    using UnconsumedEmitter = Vemit::Emitter<Event&>;

    static Vetra::StringID staticGetDefaultRole();

    /// Sends each such event; who listens may consume it.
    UnconsumedEmitter& unconsumedEmitter() noexcept { return m_unconsumed; }

    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    void cancel(ECancelReason reason, const Tool* cause) override;
    Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }
    bool requiresKeyAutoRepeat() const override { return true; }

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

private:
    UnconsumedEmitter m_unconsumed;

    TOVA_DERIVED_TYPE("Tova2.UnconsumedEventTool", Tool);
};

} // namespace Tova2
