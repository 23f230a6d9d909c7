#pragma once

#include <tova/tova.h>

#include <string>

/// What is dragged: the name of the block, in a format of our own.
inline constexpr const char* kBlockFormat = "application/x-example-block";

inline Vetra::StringID blockTag()
{
    return "Block";
}

inline Tova2::DrawStyle outlined(const Tova2::Fill& fill, Tova2::StrokeStyle line)
{
    using namespace Tova2;
    DrawStyle style(Stroke(Vetra::Color(0.16, 0.2, 0.3), 1.5, line, StrokeCapStyle::RoundCap,
                           StrokeJoinStyle::RoundJoin, nullptr),
                    fill);
    style.setIsAntiAliased(true);
    return style;
}

inline Tova2::Node makeBlock(const std::string& name, const Vetra::GLPoint<double>& middle)
{
    using namespace Tova2;
    const Vetra::GLRect<double> box{-45, -22, 90, 44};
    RoundedRectNode block(box, 6);
    block.setDrawStyle(outlined(Fill(Vetra::Color(0.89, 0.94, 0.99)), StrokeStyle::SolidLine));
    block.setPosition(middle);
    block.addTag(blockTag());
    block.addTag(name);
    TextNode label(name);
    label.setFont(Vetra::Font("DejaVu Sans", 11));
    label.setRect(box);
    label.setHorizontalAlignment(HorizontalAlignment::Middle);
    label.setVerticalAlignment(VerticalAlignment::Middle);
    label.setParent(block);
    return block;
}
