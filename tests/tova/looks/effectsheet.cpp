#include "looks/sheet.h"

namespace Tova2::Looks {

namespace {

using Vetra::Color;

const Color kLine(0.2, 0.25, 0.4), kFill(1, 0.95, 0.8), kLight(0.95, 0.5, 0.1),
    kBlue(0.1, 0.3, 0.9);

Stroke line(double width, const Color& color = kLine, StrokeStyle style = StrokeStyle::SolidLine)
{
    return Stroke(color, width, style, StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin,
                  nullptr);
}

template <class Record>
Effect only(const Record& record)
{
    return Effect::createEffect(record);
}

DrawStyle withEffect(const Effect& effect, const Fill& fill = kFill)
{
    DrawStyle style = smooth(line(1.5), fill);
    style.setEffect(effect);
    return style;
}

/// Two shapes, so that what is drawn of rectangles by other means has to agree with the rest.
Cell pair(const char* caption, const Effect& effect, const Fill& fill = kFill)
{
    return cellOf(caption,
                  {styled(RectNode({10, 12, 24, 26}), withEffect(effect, fill)),
                   styled(EllipseNode(Ellipse({44, 12, 22, 26})), withEffect(effect, fill))});
}

Cell single(const char* caption, const Node& node, const Effect& effect, double zoom = 1)
{
    return cellOf(caption, {styled(node, withEffect(effect))}, zoom);
}

Node path()
{
    return OpenLinearPathNode({{12, 34}, {24, 14}, {40, 34}, {62, 14}});
}

Cell text(const char* caption, const Effect& effect)
{
    TextNode node("Words");
    node.setFont(Vetra::Font("DejaVu Sans Mono", 18));
    node.setPosition({10, 12});
    node.setEffect(effect);
    return cellOf(caption, {node});
}

Effect trace(StrokeInsetType inset, StrokeStyle style = StrokeStyle::SolidLine)
{
    return only(Effect::Trace(line(3, kLight, style), inset));
}

Effect all()
{
    Effect effect = only(Effect::Shadow());
    effect.set(Effect::Glow(kLight, 6, true, 2));
    effect.set(Effect::Overlay(Color(0.1, 0.6, 0.2, 0.3)));
    effect.set(Effect::Trace(line(2, kBlue), StrokeInsetType::Outer));
    effect.set(Effect::Squiggly(Color(0.9, 0.1, 0.1)));
    return effect;
}

Cell turned(const char* caption, const Effect& effect)
{
    Node node = styled(RectNode({18, 12, 40, 24}), withEffect(effect));
    node.rotateDegreesAroundPoint(20, {38, 24});
    return cellOf(caption, {node});
}

} // namespace

Cells effectCells()
{
    const Effect soft = only(Effect::Shadow());
    const Effect under = only(Effect::Shadow(Color(0, 0, 0, 0.65), 3, {4, 4}, false));
    const Effect glow = only(Effect::Glow(kLight, 6, true, 2));
    const Effect squiggly = only(Effect::Squiggly(Color(0.9, 0.1, 0.1)));
    const Effect overlay = only(Effect::Overlay(Color(0.1, 0.4, 0.9, 0.4)));
    const Fill faint(Color(1, 0.95, 0.8, 0.4));
    return {
        pair("shadow", soft),
        pair("sharp shadow", only(Effect::Shadow(0.5, 0, {5, 4}, true))),
        pair("wide shadow", only(Effect::Shadow(kBlue, 8, {0, 0}, true))),
        pair("shadow above", only(Effect::Shadow(0.65, 4, {-5, -5}, true))),
        pair("faint, masked", only(Effect::Shadow(0.65, 3, {4, 4}, true)), faint),
        pair("faint, unmasked", under, faint),
        single("rounded shadow", RoundedRectNode(kBox, 10), soft),
        single("path shadow", path(), soft),
        turned("turned shadow", only(Effect::Shadow(0.65, 3, {5, 3}, true))),
        text("text shadow", soft),
        single("shadow x2", RectNode({8, 6, 20, 12}), soft, 2),
        single("shadow x0.5", RectNode({30, 20, 90, 60}), soft, 0.5),
        pair("glow", glow),
        pair("glow gain 0.5", only(Effect::Glow(kLight, 6, true, 0.5))),
        pair("glow gain 20", only(Effect::Glow(kLight, 6, true, 20))),
        pair("narrow glow", only(Effect::Glow(kBlue, 1, true, 2))),
        pair("faint glow", only(Effect::Glow(kLight, 6, false, 2)), faint),
        single("path glow", path(), glow),
        turned("turned glow", glow),
        text("text glow", glow),
        pair("overlay", overlay),
        single("path overlay", path(), overlay),
        text("text overlay", overlay),
        pair("faint overlay", overlay, faint),
        pair("inner trace", trace(StrokeInsetType::Inner)),
        pair("centre trace", trace(StrokeInsetType::Center)),
        pair("outer trace", trace(StrokeInsetType::Outer)),
        pair("dashed trace", trace(StrokeInsetType::Outer, StrokeStyle::DashLine)),
        single("path trace", path(), trace(StrokeInsetType::Outer)),
        text("text trace", trace(StrokeInsetType::Outer)),
        pair("squiggly", squiggly),
        text("text squiggly", squiggly),
        single("path squiggly", path(), squiggly),
        turned("turned squiggly", squiggly),
        pair("all five", all()),
        text("text, all five", all()),
    };
}

} // namespace Tova2::Looks
