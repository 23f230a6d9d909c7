#include "tova/nodes/lineendings.h"

#include "tova/nodes/ellipsenode.h"
#include "tova/nodes/linearpathnode.h"
#include "tova/nodes/linenode.h"
#include "tova/nodes/openlinearpathnode.h"
#include "tova/nodes/shapenode.h"
#include "vetra/shape.h"

#include <algorithm>
#include <cmath>

namespace Tova2::LineEndings {

namespace {

using Points = std::vector<Vetra::GLPoint<double>>;

// Of heads, half across to along.
constexpr double kSlope = 0.4;
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

/// How far a mitred tip of the head reaches beyond where its two lines meet.
double tipReach(const Stroke& line)
{
    return line.width(1.0) / 2 * std::hypot(1, kSlope) / kSlope;
}

} // namespace

// The line ends a little inside the head, so that no gap shows between two antialiased edges.
LineEndDecoration createFilledArrow(const Stroke& line, double length)
{
    const double l = usable(length, 8);
    const Points head{{0, 0}, {-l, -kSlope * l}, {(kNotch - 1) * l, 0}, {-l, kSlope * l}};
    return decorated(LinearPathNode(head), filled(line), (0.9 - kNotch) * l);
}

LineEndDecoration createOpenArrow(const Stroke& line, double length)
{
    const double l = usable(length, 8), tip = -tipReach(line);
    const Points head{{tip - l, -kSlope * l}, {tip, 0}, {tip - l, kSlope * l}};
    return decorated(OpenLinearPathNode(head), stroked(line, StrokeJoinStyle::MiterJoin), -tip);
}

LineEndDecoration createTriangle(const Stroke& line, double length, const Vetra::Color& fill)
{
    const double l = usable(length, 8), tip = -tipReach(line);
    const Points head{{tip, 0}, {tip - l, -kSlope * l}, {tip - l, kSlope * l}};
    const DrawStyle style(solid(line, StrokeJoinStyle::MiterJoin), Fill(fill));
    return decorated(LinearPathNode(head), style, l - tip);
}

LineEndDecoration createDiamond(const Stroke& line, double length)
{
    const double l = usable(length, 10), across = kSlope * l / 2 * 1.5;
    const Points diamond{{0, 0}, {-l / 2, -across}, {-l, 0}, {-l / 2, across}};
    return decorated(LinearPathNode(diamond), filled(line), 0.75 * l);
}

LineEndDecoration createDot(const Stroke& line, double length)
{
    const double l = usable(length, 5);
    return decorated(EllipseNode(Ellipse({-l, -l / 2, l, l})), filled(line), l / 2);
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
