#pragma once

#include <tova/tova.h>
#include <widgets/objectwatch.h>

#include <optional>

/// A press on a button of the palette picks a kind of figure, the next press in the diagram puts
/// one there. Escape, or a press on the same button, drops it again.
class ShapeTool : public Tova2::Tool {
public:
    static Vetra::StringID role() { return "ShapeTool"; }
    /// On the buttons; the value is the kind, a std::string.
    static Vetra::StringID kindTag() { return "ShapeKind"; }

    explicit ShapeTool(Tova2::GLCanvas& canvas) : m_canvas(&canvas) {}

    ModifyingType isModifyingTool() const override { return ModifyingType::ModifiesModel; }
    Vetra::StringID getDefaultRole() const override { return role(); }
    std::optional<Vetra::Cursor> overrideCursor() override;
    void cancel(ECancelReason reason, const Tool* cause) override;
    void handleMousePressEvent(Tova2::MouseEvent& event) override;

private:
    Tova2::Node buttonAt(const Vetra::GLPoint<double>& scenePoint) const;
    void pick(const Tova2::Node& button);

    Widgets::ObjectWatch<Tova2::GLCanvas> m_canvas;
    Tova2::Node m_picked; ///< the button; empty while none is
};
