#include "tova/nodes/lineendings.h"

#include "tova/nodes/ellipsenode.h"
#include "tova/nodes/linenode.h"
#include "tova/nodes/rectnode.h"
#include "tova/nodes/shapenode.h"
#include "vetra/shape.h"

#include <algorithm>
#include <cmath>

namespace Tova2::LineEndings {

namespace {

using Points = std::vector<Vetra::GLPoint<double>>;

// Of heads, half across to along.
constexpr double kSlope = 0.4, kDiamondSlope = 0.6;
/// How deep the notch of a filled arrow is.
constexpr double kNotch = 0.25;

/// What of the stroke's width grows with the node: a line of one pixel at every zoom has none.
double widthOf(const Stroke& line)
{
    return line.logicalWidth() > 0 ? line.width(1.0) : 0;
}

double usable(double length, double otherwise, const Stroke& line)
{
    if (length > 0 && std::isfinite(length))
        return length;
    constexpr double kFits = 2; // of widths
    return otherwise * std::max(1.0, widthOf(line) / kFits);
}

/// Mitres of a line of one pixel would reach far beyond the end when zoomed out.
Stroke solid(const Stroke& line, StrokeJoinStyle join)
{
    Stroke stroke = line;
    stroke.setStyle(StrokeStyle::SolidLine);
    stroke.setCapStyle(StrokeCapStyle::FlatCap);
    stroke.setJoinStyle(widthOf(line) > 0 ? join : StrokeJoinStyle::BevelJoin);
    return stroke;
}

/// A shape and no path: lines cross paths, and would be marked where they end in a head.
Node polygon(const Points& points, bool isClosed = true)
{
    Vetra::Shape shape;
    shape.addPolygon(points, isClosed);
    return ShapeNode(shape);
}

LineEndDecoration decorated(Node node, const DrawStyle& style, double backoff)
{
    DrawStyle own = style;
    own.setIsAntiAliased(true);
    node.setDrawStyle(own);
    LineEndDecoration decoration(node);
    decoration.setLineBackoff(backoff);
    return decoration;
}

DrawStyle filled(const Stroke& line)
{
    return DrawStyle(Stroke::NoStroke(), Fill(line.color()));
}

DrawStyle stroked(const Stroke& line, StrokeJoinStyle join)
{
    return DrawStyle(solid(line, join), Fill());
}

/// How far a mitred tip reaches beyond where its two lines meet.
double tipReach(const Stroke& line, double slope = kSlope)
{
    return widthOf(line) / 2 * std::hypot(1, slope) / slope;
}

DrawStyle solidOrOutlined(const Stroke& line, const std::optional<Vetra::Color>& fill)
{
    return fill ? DrawStyle(solid(line, StrokeJoinStyle::MiterJoin), Fill(*fill)) : filled(line);
}

/// How much of the length an outline takes at the line's end and at the other one, so that it stays
/// within; the length is what was asked for, or more if little would be left inside.
struct Insets {
    double front = 0, back = 0, length;
};

Insets insets(const std::optional<Vetra::Color>& fill, const Stroke& line, double front,
              double back, double length)
{
    if (!fill)
        return {0, 0, length};
    return {front, back, std::max(length, front + back + widthOf(line))};
}

} // namespace

// The line ends a little inside the head, so that no gap shows between two antialiased edges.
LineEndDecoration createFilledArrow(const Stroke& line, double length)
{
    const double l = usable(length, 8, line);
    const Points head{{0, 0}, {-l, -kSlope * l}, {(kNotch - 1) * l, 0}, {-l, kSlope * l}};
    return decorated(polygon(head), filled(line), (0.9 - kNotch) * l);
}

LineEndDecoration createOpenArrow(const Stroke& line, double length)
{
    const double l = usable(length, 8, line), tip = -tipReach(line);
    const Points head{{tip - l, -kSlope * l}, {tip, 0}, {tip - l, kSlope * l}};
    return decorated(polygon(head, false), stroked(line, StrokeJoinStyle::MiterJoin), -tip);
}

LineEndDecoration createTriangle(const Stroke& line, double length,
                                 const std::optional<Vetra::Color>& fill)
{
    const auto [front, back, l] =
        insets(fill, line, tipReach(line), widthOf(line) / 2, usable(length, 8, line));
    const double base = back - l, across = kSlope * -(front + base);
    const Points head{{-front, 0}, {base, -across}, {base, across}};
    return decorated(polygon(head), solidOrOutlined(line, fill), fill ? -base : 0.9 * l);
}

LineEndDecoration createInvertedTriangle(const Stroke& line, double length,
                                         const std::optional<Vetra::Color>& fill)
{
    const auto [front, back, l] =
        insets(fill, line, widthOf(line) / 2, tipReach(line), usable(length, 8, line));
    const double apex = back - l, across = kSlope * -(front + apex);
    const Points head{{apex, 0}, {-front, -across}, {-front, across}};
    return decorated(polygon(head), solidOrOutlined(line, fill), fill ? -apex : l / 2);
}

LineEndDecoration createDiamond(const Stroke& line, double length,
                                const std::optional<Vetra::Color>& fill)
{
    const double reach = tipReach(line, kDiamondSlope);
    const auto [front, back, l] = insets(fill, line, reach, reach, usable(length, 10, line));
    const double across = kDiamondSlope * (l / 2 - front);
    const Points diamond{{-front, 0}, {-l / 2, -across}, {back - l, 0}, {-l / 2, across}};
    return decorated(polygon(diamond), solidOrOutlined(line, fill), fill ? l - back : 0.75 * l);
}

LineEndDecoration createDot(const Stroke& line, double length,
                            const std::optional<Vetra::Color>& fill)
{
    const double half = widthOf(line) / 2;
    const auto [edge, back, l] = insets(fill, line, half, half, usable(length, 5, line));
    const Ellipse dot({back - l, edge - l / 2, l - 2 * edge, l - 2 * edge});
    return decorated(EllipseNode(dot), solidOrOutlined(line, fill), fill ? l - edge : l / 2);
}

LineEndDecoration createBox(const Stroke& line, double length,
                            const std::optional<Vetra::Color>& fill)
{
    const double half = widthOf(line) / 2;
    const auto [edge, back, l] = insets(fill, line, half, half, usable(length, 6, line));
    const RectNode box({back - l, edge - l / 2, l - 2 * edge, l - 2 * edge});
    return decorated(box, solidOrOutlined(line, fill), fill ? l - edge : 0.9 * l);
}

// In the middle of the bar's own stroke.
LineEndDecoration createBar(const Stroke& line, double length)
{
    const double l = usable(length, 8, line), x = -widthOf(line) / 2;
    return decorated(LineNode({x, -l / 2}, {x, l / 2}), stroked(line, StrokeJoinStyle::MiterJoin),
                     -x);
}

// The line itself is the middle toe's root.
LineEndDecoration createCrowsFoot(const Stroke& line, double length)
{
    const double l = usable(length, 8, line);
    const double x = -0.28 * widthOf(line); // the slanted toes end in flat caps
    Vetra::Shape toes;
    toes.addPolygon({{x, -l / 2}, {-l, 0}, {x, l / 2}}, false);
    toes.addPolygon({{-l, 0}, {0, 0}}, false);
    return decorated(ShapeNode(toes), stroked(line, StrokeJoinStyle::BevelJoin), l);
}

} // namespace Tova2::LineEndings
