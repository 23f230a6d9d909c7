#pragma once

#include "tova/events/tool.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

class GLCanvas;

/// Turns the wheel into zoom steps about the pointer; with Shift it scrolls sideways, with Ctrl up
/// and down. Other modifiers, and several of them, are left to others.
class TOVA_EXPORT ScrollWheelTool : public Tool {
public:
    static Vetra::StringID staticGetDefaultRole();

    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    void cancel(ECancelReason reason, const Tool* cause) override;
    Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }

    void handleWheelEvent(MouseEvent& event) override;

protected:
    /// When false, the plain wheel scrolls up and down and Ctrl zooms.
    virtual bool shouldZoomPrimarily() { return true; }

    // The canvas is the event's, and not null.

    void doScrollHorizontal(MouseEvent& event, GLCanvas* canvas);
    void doScrollVertical(MouseEvent& event, GLCanvas* canvas);
    void doZoom(MouseEvent& event, GLCanvas* canvas);

    TOVA_DERIVED_TYPE("Tova2.ScrollWheelTool", Tool);
};

} // namespace Tova2
