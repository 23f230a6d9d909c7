#include "looks/sheet.h"

namespace Tova2::Looks {

namespace {

using Vetra::Color;
using Vetra::Gradient;
using Mode = Gradient::CoordinateMode;
using Spread = Gradient::Spread;

const Stroke kThin(Color(0.2, 0.2, 0.2), 1, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                   StrokeJoinStyle::MiterJoin, nullptr);

Gradient coloured(Gradient gradient, Spread spread = Spread::Pad, Mode mode = Mode::Logical,
                  double lastOpacity = 1)
{
    gradient.addStop(0, Color(0.1, 0.2, 0.7));
    gradient.addStop(0.5, Color(1, 0.9, 0.3));
    gradient.addStop(1, Color(0.8, 0.1, 0.2, lastOpacity));
    gradient.setSpread(spread);
    gradient.setCoordinateMode(mode);
    return gradient;
}

Gradient across()
{
    return Gradient::linear({12, 9}, {64, 41});
}
Gradient shortRamp()
{
    return Gradient::linear({30, 25}, {46, 25});
}

/// Shows through what is translucent.
Node bar()
{
    return styled(RectNode({2, 21, 72, 8}), smooth(Stroke::NoStroke(), Fill(Color(0, 0, 0))));
}

Vetra::Shape star()
{
    Vetra::Shape shape;
    shape.moveTo({38, 8});
    for (const Point& point : {Point{55, 42}, Point{12, 20}, Point{64, 20}, Point{21, 42}})
        shape.lineTo(point);
    shape.closeSubpath();
    shape.setFillRule(Vetra::Shape::FillRule::OddEven);
    return shape;
}

Node turned(Node node)
{
    node.rotateDegreesAroundPoint(12, {38, 25});
    return node;
}

Cell box(const char* caption, const Fill& fill)
{
    return cellOf(caption, {styled(RectNode(kBox), smooth(kThin, fill))});
}

/// Its letters must be where they are without a gradient behind them.
Cell labelled(const Fill& fill)
{
    TextNode text("text");
    text.setFont(Vetra::Font("DejaVu Sans Mono", 14));
    text.setPosition({20, 14});
    return cellOf("text above", {styled(RectNode(kBox), smooth(kThin, fill)), text});
}

} // namespace

Cells fillCells()
{
    const Fill ramp(coloured(across())), solid(Color(0.3, 0.7, 0.5));
    const Fill boxRamp(
        coloured(Gradient::linear({0, 0}, {1, 1}), Spread::Pad, Mode::ObjectBounding));
    const Fill faint(Color(0.3, 0.7, 0.5, 0.5));
    const Fill faintRamp(coloured(across(), Spread::Pad, Mode::Logical, 0));
    return {
        box("none", Fill()),
        box("solid", solid),
        cellOf("translucent", {bar(), styled(RectNode(kBox), smooth(kThin, faint))}),
        cellOf("solid ellipse", {styled(EllipseNode(Ellipse(kBox)), smooth(kThin, solid))}),
        cellOf("solid rounded", {styled(RoundedRectNode(kBox, 10), smooth(kThin, solid))}),
        cellOf("solid odd-even", {styled(ShapeNode(star()), smooth(kThin, solid))}),
        box("linear", ramp),
        box("linear reflect", coloured(shortRamp(), Spread::Reflect)),
        box("linear repeat", coloured(shortRamp(), Spread::Repeat)),
        cellOf("linear to clear", {bar(), styled(RectNode(kBox), smooth(kThin, faintRamp))}),
        cellOf("linear turned", {turned(styled(RectNode(kBox), smooth(kThin, ramp)))}),
        cellOf("linear odd-even", {styled(ShapeNode(star()), smooth(kThin, ramp))}),
        box("radial", coloured(Gradient::radial({38, 25}, 26))),
        box("radial focal", coloured(Gradient::radial({38, 25}, 26, {25, 18}))),
        box("radial repeat", coloured(Gradient::radial({38, 25}, 9), Spread::Repeat)),
        box("conical", coloured(Gradient::conical({38, 25}, 30))),
        box("box linear", boxRamp),
        cellOf("box ellipse", {styled(EllipseNode(Ellipse(kBox)), smooth(kThin, boxRamp))}),
        box("box radial",
            coloured(Gradient::radial({0.5, 0.5}, 0.6), Spread::Pad, Mode::ObjectBounding)),
        cellOf("box rounded", {styled(RoundedRectNode(kBox, 10), smooth(kThin, boxRamp))}),
        cellOf("box fancy",
               {styled(FancyRoundedRectNode(kBox, 0, 14, 8, 2), smooth(kThin, boxRamp))}),
        labelled(boxRamp),
        cellOf("box turned", {turned(styled(RectNode(kBox), smooth(kThin, boxRamp)))}),
    };
}

} // namespace Tova2::Looks
