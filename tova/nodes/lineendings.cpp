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

double usable(double length, double otherwise)
{
    return length > 0 && std::isfinite(length) ? length : otherwise;
}

Stroke solid(const Stroke& line, StrokeJoinStyle join)
{
    Stroke stroke = line;
    stroke.setStyle(StrokeStyle::SolidLine);
    stroke.setCapStyle(StrokeCapStyle::FlatCap);
    stroke.setJoinStyle(join);
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
    return line.width(1.0) / 2 * std::hypot(1, slope) / slope;
}

DrawStyle solidOrOutlined(const Stroke& line, const std::optional<Vetra::Color>& fill)
{
    return fill ? DrawStyle(solid(line, StrokeJoinStyle::MiterJoin), Fill(*fill)) : filled(line);
}

/// The outline's share of the length at either end, so that strokes stay within it too. Some of
/// the length is left to what is inside.
double inset(const std::optional<Vetra::Color>& fill, double reach, double length)
{
    return fill ? std::min(reach, 0.45 * length) : 0;
}

} // namespace

// The line ends a little inside the head, so that no gap shows between two antialiased edges.
LineEndDecoration createFilledArrow(const Stroke& line, double length)
{
    const double l = usable(length, 8);
    const Points head{{0, 0}, {-l, -kSlope * l}, {(kNotch - 1) * l, 0}, {-l, kSlope * l}};
    return decorated(polygon(head), filled(line), (0.9 - kNotch) * l);
}

LineEndDecoration createOpenArrow(const Stroke& line, double length)
{
    const double l = usable(length, 8), tip = -tipReach(line);
    const Points head{{tip - l, -kSlope * l}, {tip, 0}, {tip - l, kSlope * l}};
    return decorated(polygon(head, false), stroked(line, StrokeJoinStyle::MiterJoin), -tip);
}

LineEndDecoration createTriangle(const Stroke& line, double length,
                                 const std::optional<Vetra::Color>& fill)
{
    const double l = usable(length, 8), tip = -inset(fill, tipReach(line), l);
    const double base = inset(fill, line.width(1.0) / 2, l) - l, across = kSlope * (tip - base);
    const Points head{{tip, 0}, {base, -across}, {base, across}};
    return decorated(polygon(head), solidOrOutlined(line, fill), fill ? -base : 0.9 * l);
}

LineEndDecoration createInvertedTriangle(const Stroke& line, double length,
                                         const std::optional<Vetra::Color>& fill)
{
    const double l = usable(length, 8), base = -inset(fill, line.width(1.0) / 2, l);
    const double apex = inset(fill, tipReach(line), l) - l, across = kSlope * (base - apex);
    const Points head{{apex, 0}, {base, -across}, {base, across}};
    return decorated(polygon(head), solidOrOutlined(line, fill), fill ? -apex : l / 2);
}

LineEndDecoration createDiamond(const Stroke& line, double length,
                                const std::optional<Vetra::Color>& fill)
{
    const double l = usable(length, 10), tip = -inset(fill, tipReach(line, kDiamondSlope), l);
    const double across = kDiamondSlope * (l / 2 + tip);
    const Points diamond{{tip, 0}, {-l / 2, -across}, {-l - tip, 0}, {-l / 2, across}};
    return decorated(polygon(diamond), solidOrOutlined(line, fill), fill ? l + tip : 0.75 * l);
}

LineEndDecoration createDot(const Stroke& line, double length,
                            const std::optional<Vetra::Color>& fill)
{
    const double l = usable(length, 5), edge = inset(fill, line.width(1.0) / 2, l);
    const Ellipse dot({edge - l, edge - l / 2, l - 2 * edge, l - 2 * edge});
    return decorated(EllipseNode(dot), solidOrOutlined(line, fill), fill ? l - edge : l / 2);
}

LineEndDecoration createBox(const Stroke& line, double length,
                            const std::optional<Vetra::Color>& fill)
{
    const double l = usable(length, 6), edge = inset(fill, line.width(1.0) / 2, l);
    const RectNode box({edge - l, edge - l / 2, l - 2 * edge, l - 2 * edge});
    return decorated(box, solidOrOutlined(line, fill), fill ? l - edge : 0.9 * l);
}

// In the middle of the bar's own stroke.
LineEndDecoration createBar(const Stroke& line, double length)
{
    const double l = usable(length, 8), x = -line.width(1.0) / 2;
    return decorated(LineNode({x, -l / 2}, {x, l / 2}), stroked(line, StrokeJoinStyle::MiterJoin),
                     -x);
}

// The line itself is the middle toe's root.
LineEndDecoration createCrowsFoot(const Stroke& line, double length)
{
    const double l = usable(length, 8);
    const double x = -line.width(1.0) / 4; // the slanted toes end in flat caps
    Vetra::Shape toes;
    toes.addPolygon({{x, -l / 2}, {-l, 0}, {x, l / 2}}, false);
    toes.addPolygon({{-l, 0}, {0, 0}}, false);
    return decorated(ShapeNode(toes), stroked(line, StrokeJoinStyle::BevelJoin), l);
}

} // namespace Tova2::LineEndings
