#pragma once

#include <tova/tova.h>

/// Drags a copy of the block under the pointer to wherever one is wanted.
class DragOutTool : public Tova2::Tool {
public:
    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    Vetra::StringID getDefaultRole() const override { return "DragOutTool"; }
    void cancel(ECancelReason, const Tova2::Tool*) override { becomeIdle(); }

    void handleUserDragInitEvent(Tova2::MouseEvent& event) override;
};
