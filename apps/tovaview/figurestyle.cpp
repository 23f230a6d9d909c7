#include "figurestyle.h"

#include <algorithm>

namespace TovaView {
namespace {

// A gradient holds one colour a place; this is how far apart the two sides of a hard edge are put.
constexpr double hardEdge = 1e-5;

Point minus(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y};
}

Vetra::Gradient gradientOf(const GradientFill& fill, const Point& origin)
{
    const Point from = minus(fill.from, origin), to = minus(fill.to, origin);
    const bool radial = fill.radial && fill.toRadius > 0;
    Vetra::Gradient gradient = radial ? Vetra::Gradient::radial(to, fill.toRadius, from)
                                      : Vetra::Gradient::linear(from, to);
    // The ramp starts at the inner circle, where ours starts at its centre.
    const double start = radial ? std::clamp(fill.fromRadius / fill.toRadius, 0.0, 1.0) : 0;
    double last = -1;
    for (const GradientStop& stop : fill.stops) {
        const double offset = start + stop.position * (1 - start);
        last = std::min(std::max(offset, last + hardEdge), 1.0);
        gradient.addStop(last, stop.color);
    }
    return gradient;
}

Tova2::StrokeStyle strokeStyleOf(Dash dash)
{
    switch (dash) {
    case Dash::Dashed:
        return Tova2::StrokeStyle::DashLine;
    case Dash::Dotted:
        return Tova2::StrokeStyle::DotLine;
    case Dash::Solid:
        break;
    }
    return Tova2::StrokeStyle::SolidLine;
}

void addCurve(Vetra::Shape& shape, const Points& points, const Point& origin)
{
    shape.moveTo(minus(points.front(), origin));
    for (std::size_t i = 1; i + 2 < points.size(); i += 3)
        shape.cubicTo(minus(points[i], origin), minus(points[i + 1], origin),
                      minus(points[i + 2], origin));
    if (points.front() == points.back())
        shape.closeSubpath();
}

} // namespace

Tova2::DrawStyle styleOf(const Figure& figure, const Point& origin)
{
    Tova2::DrawStyle style(Tova2::Stroke::NoStroke(), Tova2::Fill::NoFill());
    if (figure.line)
        style.setStroke({figure.line->color, figure.line->width, strokeStyleOf(figure.line->dash),
                         Tova2::StrokeCapStyle::FlatCap, Tova2::StrokeJoinStyle::MiterJoin,
                         nullptr});
    if (figure.fill && figure.fill->gradient)
        style.setFill(gradientOf(*figure.fill->gradient, origin));
    else if (figure.fill)
        style.setFill(figure.fill->color);
    style.setIsAntiAliased(true);
    return style;
}

Vetra::Shape shapeOf(const Figure& figure, const Point& origin)
{
    Vetra::Shape shape;
    const Points& points = figure.points;
    if (points.empty())
        return shape;
    if (figure.outline == Outline::Ellipse) {
        shape.addEllipse(boxOf(points).translated({-origin.x, -origin.y}));
    } else if (figure.outline == Outline::Bezier) {
        addCurve(shape, points, origin);
    } else {
        Points local;
        for (const Point& point : points)
            local.push_back(minus(point, origin));
        shape.addPolygon(local, figure.outline == Outline::Polygon);
    }
    return shape;
}

std::optional<Rect> rectOf(const Figure& figure)
{
    const Points& p = figure.points;
    if (figure.outline != Outline::Polygon || p.size() != 4)
        return {};
    const bool acrossFirst =
        p[0].y == p[1].y && p[1].x == p[2].x && p[2].y == p[3].y && p[3].x == p[0].x;
    const bool downFirst =
        p[0].x == p[1].x && p[1].y == p[2].y && p[2].x == p[3].x && p[3].y == p[0].y;
    if (!acrossFirst && !downFirst)
        return {};
    return boxOf(p);
}

} // namespace TovaView
