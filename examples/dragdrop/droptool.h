#pragma once

#include <tova/tova.h>

/// Takes blocks that are dropped on the scene, and outlines in the canvas's overlay where they
/// would go.
class DropTool : public Tova2::Tool {
public:
    ModifyingType isModifyingTool() const override { return ModifyingType::ModifiesModel; }
    Vetra::StringID getDefaultRole() const override { return "DropTool"; }
    void cancel(ECancelReason reason, const Tova2::Tool* cause) override;
    void onRemoveFromStack() override { hide(); }

    void handleDragEvent(Tova2::DragEvent& event) override;
    void handleDropEvent(Tova2::DragEvent& event) override;
    void handleDragLeaveEvent(Tova2::WidgetEvent& event) override;

private:
    void hide();

    Tova2::Node m_outline;
};
