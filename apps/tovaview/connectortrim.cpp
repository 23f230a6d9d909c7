#include "connectortrim.h"

#include "figurestyle.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace TovaView {
namespace {

constexpr double shortestOverlap = 2; ///< less is a wide stroke or rounding
constexpr double shortestRest = 1;    ///< of the last piece of a connector

Point along(const Point& from, const Point& direction, double distance)
{
    return {from.x + direction.x * distance, from.y + direction.y * distance};
}

Point difference(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y};
}

/// The outline of a block, as far as it is simple enough to cut at.
struct Border {
    Rect box;
    bool isEllipse = false;

    /// Below 1 inside, 1 on the border.
    double measure(const Point& point) const
    {
        const double u = std::abs(point.x - box.center().x) / (box.width / 2);
        const double v = std::abs(point.y - box.center().y) / (box.height / 2);
        return isEllipse ? std::hypot(u, v) : std::max(u, v);
    }

    /// How far from `outside` a way to `inside` meets the border.
    double entry(const Point& outside, const Point& inside) const
    {
        double low = 0, high = 1;
        constexpr int halvings = 40;
        for (int i = 0; i < halvings; ++i) {
            const double middle = (low + high) / 2;
            const Point point = along(outside, difference(inside, outside), middle);
            (measure(point) > 1 ? low : high) = middle;
        }
        return high * std::hypot(inside.x - outside.x, inside.y - outside.y);
    }
};

std::optional<Border> borderOf(const Block& block)
{
    const auto& figures = block.drawing.figures;
    if (figures.empty())
        return {};
    Border border{boxOf(figures.front().points), figures.front().outline == Outline::Ellipse};
    if (!border.isEllipse) {
        if (!rectOf(figures.front()))
            return {};
        for (const Figure& figure : figures)
            border.box = border.box.united(boxOf(figure.points));
    }
    if (!border.box.isValid())
        return {};
    return border;
}

/// `points` come end first. The last piece keeps room for the ending.
void trimEnd(Points& points, const std::optional<Ending>& ending,
             const std::optional<Border>& border)
{
    const Point end = points[0], before = points[1];
    const double length = std::hypot(end.x - before.x, end.y - before.y);
    if (!border || !(length > 0) || !(border->measure(end) < 1) || !(border->measure(before) > 1))
        return;
    const double kept = border->entry(before, end);
    const double room = kept - (ending ? ending->length : 0);
    if (length - kept < shortestOverlap || room < shortestRest)
        return;
    points[0] = along(before, difference(end, before), kept / length);
}

} // namespace

void trimConnectors(Diagram& diagram)
{
    const auto borderAt = [&](int block) {
        return block < 0 ? std::nullopt : borderOf(diagram.blocks[static_cast<std::size_t>(block)]);
    };
    for (Connector& connector : diagram.connectors) {
        if (connector.lines.size() != 1 || connector.lines.front().outline != Outline::Polyline)
            continue;
        Points& points = connector.lines.front().points;
        if (points.size() < 2)
            continue;
        trimEnd(points, connector.tailEnding, borderAt(connector.tail));
        std::reverse(points.begin(), points.end());
        trimEnd(points, connector.headEnding, borderAt(connector.head));
        std::reverse(points.begin(), points.end());
    }
}

} // namespace TovaView
