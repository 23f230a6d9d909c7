#pragma once

#include <tova/tova.h>

#include <unordered_map>
#include <vector>

/// Selects blocks, by click and by rubber band, and moves what is selected. Blocks are the nodes
/// that carry the tag "Block". With Shift a click or a band adds to the selection.
class SelectTool : public Tova2::Tool {
public:
    static Vetra::StringID blockTag() { return "Block"; }
    static Vetra::StringID staticGetDefaultRole() { return "SelectTool"; }

    std::vector<Tova2::Node> selection() const;

    ModifyingType isModifyingTool() const override { return ModifyingType::ModifiesModel; }
    Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }
    void cancel(ECancelReason reason, const Tool* cause) override;
    void onRemoveFromStack() override;

    void handleMousePressEvent(Tova2::MouseEvent& event) override;
    void handleMouseMoveEvent(Tova2::MouseEvent& event) override;
    void handleMouseReleaseEvent(Tova2::MouseEvent& event) override;
    void handleFocusOutEvent(Tova2::FocusEvent& event) override;
    void handleLeaveCanvasEvent(Tova2::WidgetEvent& event) override;

private:
    using Point = Vetra::GLPoint<double>;
    /// What a selected block gets back when it no longer is.
    struct Selected {
        Tova2::Stroke stroke = Tova2::Stroke::NoStroke();
        Point start; // where a move found it
    };

    Tova2::Node blockAt(const Tova2::MouseEvent& event) const;
    bool isSelected(const Tova2::Node& block) const;
    void select(const Tova2::Node& block);
    void clearSelection();
    void moveSelection(const Point& distance);
    void stretchBand(const Point& corner);
    void endGesture();

    // By weak references: whoever deletes a block need not tell the tool.
    std::unordered_map<Tova2::WeakRef, Selected> m_selection;
    std::vector<Tova2::WeakRef> m_kept; // by a band that adds
    Tova2::RectNode m_band{Vetra::GLRect<double>{}};
    Point m_press;
    Vetra::GLPoint<int> m_pressPixel;
    bool m_isBanding = false;
};
