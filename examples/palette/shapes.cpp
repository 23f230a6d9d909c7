#include "shapes.h"

using namespace Tova2;
using Vetra::Color;
using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;

namespace {

Vetra::Shape polygon(const std::vector<Point>& corners)
{
    Vetra::Shape shape;
    shape.addPolygon(corners);
    return shape;
}

} // namespace

const std::vector<std::string>& shapeKinds()
{
    static const std::vector<std::string> kinds{"step", "decision", "data", "end"};
    return kinds;
}

Vetra::Shape shapeOf(const std::string& kind, const Rect& box)
{
    const double slant = box.height / 3;
    const Point middle = box.center();
    if (kind == "decision")
        return polygon({{box.x, middle.y},
                        {middle.x, box.y},
                        {box.right(), middle.y},
                        {middle.x, box.bottom()}});
    if (kind == "data")
        return polygon({{box.x + slant, box.y},
                        {box.right(), box.y},
                        {box.right() - slant, box.bottom()},
                        {box.x, box.bottom()}});
    if (kind == "end") {
        Vetra::Shape shape;
        shape.addRoundedRect(box, box.height / 2, box.height / 2);
        return shape;
    }
    return polygon(
        {box.topLeft(), {box.right(), box.y}, {box.right(), box.bottom()}, {box.x, box.bottom()}});
}

DrawStyle smooth(const Stroke& stroke, const Fill& fill)
{
    DrawStyle style(stroke, fill);
    style.setIsAntiAliased(true);
    style.setIsPixelAligned(true);
    return style;
}

Stroke line(double width, const Color& color)
{
    return Stroke(color, width, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                  StrokeJoinStyle::RoundJoin, nullptr);
}

Node makeFigure(const std::string& kind, const Point& middle, const std::string& words)
{
    const Color ink(0.16, 0.2, 0.3);
    const Rect box{-45, -25, 90, 50};
    ShapeNode figure(shapeOf(kind, box));
    figure.setDrawStyle(smooth(line(1.5, ink), Fill(Color(0.89, 0.94, 0.99))));
    figure.setPosition(middle);
    TextNode label(words);
    label.setFont(Vetra::Font("DejaVu Sans", 10));
    label.setColor(ink);
    label.setRect(box);
    label.setHorizontalAlignment(HorizontalAlignment::Middle);
    label.setVerticalAlignment(VerticalAlignment::Middle);
    label.setParent(figure);
    return figure;
}
