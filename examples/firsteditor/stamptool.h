#pragma once

#include "dragtool.h"

#include <tova/tova.h>

#include <string>

/// A rounded rectangle with a label, which the tools take for a block.
inline Tova2::Node makeBlock(const std::string& name, const Vetra::GLPoint<double>& place)
{
    Tova2::RoundedRectNode block({0, 0, 110, 50}, 8);
    block.setFill(Tova2::Fill(Vetra::Color(0.90, 0.94, 0.98)));
    block.setPosition(place);
    block.addTag(DragTool::blockTag());
    Tova2::TextNode label(name);
    label.setRect({0, 0, 110, 50});
    label.setHorizontalAlignment(Tova2::HorizontalAlignment::Middle);
    label.setVerticalAlignment(Tova2::VerticalAlignment::Middle);
    label.setParent(block);
    return block;
}

/// Puts one block where the next press is, and has done.
class StampTool : public Tova2::Tool {
public:
    ModifyingType isModifyingTool() const override { return ModifyingType::ModifiesModel; }
    Vetra::StringID getDefaultRole() const override { return "StampTool"; }
    void cancel(ECancelReason, const Tool*) override { becomeDone(); }
    void handleMousePressEvent(Tova2::MouseEvent& event) override
    {
        scene()->addNode(makeBlock("Stamped", event.scenePos()));
        event.consume();
        becomeDone(); // leaves the stack when the event is over
    }
};
