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

double dot(const Point& a, const Point& b)
{
    return a.x * b.x + a.y * b.y;
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

/// One end of a connector: `points` come end first.
class End {
public:
    End(Points& points, std::vector<Figure*> heads) : m_points(points), m_heads(std::move(heads)) {}

    void trim(const Border& border)
    {
        const Point end = m_points[0], before = m_points[1];
        const double length = std::hypot(end.x - before.x, end.y - before.y);
        if (!(length > 0))
            return;
        const Point direction{(end.x - before.x) / length, (end.y - before.y) / length};
        const double reach = headReach(end, direction);
        const Point tip = along(end, direction, reach);
        if (!(border.measure(tip) < 1) || !(border.measure(before) > 1))
            return;
        const double kept = border.entry(before, tip);
        if (length + reach - kept < shortestOverlap || kept - reach < shortestRest)
            return;
        m_points[0] = along(before, direction, kept - reach);
        moveHeads(difference(m_points[0], end));
    }

private:
    double headReach(const Point& end, const Point& direction) const
    {
        double reach = 0;
        for (const Figure* head : m_heads)
            for (const Point& point : head->points)
                reach = std::max(reach, dot(difference(point, end), direction));
        return reach;
    }

    void moveHeads(const Point& by)
    {
        for (Figure* head : m_heads)
            for (Point& point : head->points)
                point = {point.x + by.x, point.y + by.y};
    }

    Points& m_points;
    std::vector<Figure*> m_heads;
};

double distance(const Point& a, const Point& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// Of the two ends' heads those that lie at `near`.
std::vector<Figure*> headsAt(Connector& connector, const Point& near, const Point& far)
{
    std::vector<Figure*> heads;
    for (Figure& head : connector.heads)
        if (distance(head.points.front(), near) <= distance(head.points.front(), far))
            heads.push_back(&head);
    return heads;
}

void trimHead(Connector& connector, Points& points, const std::optional<Border>& border)
{
    if (border)
        End(points, headsAt(connector, points.front(), points.back())).trim(*border);
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
        trimHead(connector, points, borderAt(connector.tail));
        std::reverse(points.begin(), points.end());
        trimHead(connector, points, borderAt(connector.head));
        std::reverse(points.begin(), points.end());
    }
}

} // namespace TovaView
