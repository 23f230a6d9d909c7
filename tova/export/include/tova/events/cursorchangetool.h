#pragma once

#include "tova/events/tool.h"
#include "tova/nodes/weakref.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

/// Shows the cursor of the topmost node under the pointer: its own, or that of its nearest ancestor
/// that has one. While a MoveCursorUpdateBlocker lives, the node stays the one it was.
class TOVA_EXPORT CursorChangeTool : public Tool {
public:
    static Vetra::StringID staticGetDefaultRole();

    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    EAutoScrollType autoScrollTypeDuringDrag() override { return EAutoScrollType::None; }
    /// The pointer is where it was, whatever gesture ends: nothing is forgotten.
    void cancel(ECancelReason reason, const Tool* cause) override;
    void onRemoveFromStack() override;
    Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }
    /// None over a node that has left the scene or is hidden.
    std::optional<Vetra::Cursor> overrideCursor() override;

    void handleMouseMoveEvent(MouseEvent& event) override;
    void handleHoverEnterEvent(MouseEvent& event) override;
    void handleLeaveCanvasEvent(WidgetEvent& event) override;

private:
    WeakRef m_hovered;

    TOVA_DERIVED_TYPE("Tova2.CursorChangeTool", Tool);
};

} // namespace Tova2
