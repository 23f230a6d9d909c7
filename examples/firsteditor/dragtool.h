#pragma once

#include <tova/tova.h>
#include <widgets/objectwatch.h>

#include <optional>

/// Drags blocks, the nodes that carry the tag "Block", and nudges the last one by the arrow keys.
class DragTool : public Tova2::Tool {
public:
    static Vetra::StringID role() { return "DragTool"; }
    static Vetra::StringID blockTag() { return "Block"; }

    explicit DragTool(Tova2::GLCanvas& canvas);

    ModifyingType isModifyingTool() const override { return ModifyingType::ModifiesModel; }
    Vetra::StringID getDefaultRole() const override { return role(); }
    void cancel(ECancelReason reason, const Tool* cause) override;

    void handleMousePressEvent(Tova2::MouseEvent& event) override;
    void handleMouseMoveEvent(Tova2::MouseEvent& event) override;
    void handleMouseReleaseEvent(Tova2::MouseEvent& event) override;
    void handleHoverEnterEvent(Tova2::MouseEvent& event) override;
    void handleHoverExitEvent(Tova2::MouseEvent& event) override;
    void handleKeyPressEvent(Tova2::KeyEvent& event) override;
    bool requiresKeyAutoRepeat() const override { return true; }
    std::optional<Vetra::Cursor> overrideCursor() override;

private:
    Tova2::Node blockAt(const Tova2::MouseEvent& event) const;
    void showFrame();
    void endDrag();

    Widgets::ObjectWatch<Tova2::GLCanvas> m_canvas; // null once the canvas has gone
    Tova2::WeakRef m_block;         // the host may delete it in the middle of a drag
    Vetra::GLPoint<double> m_start; // of the block
    Vetra::GLPoint<double> m_press;
    Vetra::GLPoint<int> m_pressPixel;
    Tova2::RectNode m_frame{{0, 0, 1, 1}};
    bool m_isOverBlock = false;
};
