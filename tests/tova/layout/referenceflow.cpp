#include "layout/referenceflow.h"

#include <algorithm>

namespace Tova2::LayoutTest {

std::vector<std::optional<Point>> referenceFlow(const Rules& r, const std::vector<Size>& boxes)
{
    const bool left = r.h == HorizontalAlignment::Left, right = r.h == HorizontalAlignment::Right;
    const bool top = r.v == VerticalAlignment::Top, bottom = r.v == VerticalAlignment::Bottom;
    double w = (r.size.width <= 1 ? 0 : r.size.width) / r.scale, h = r.size.height / r.scale;
    if (r.mode == ExpandMode::Horizontal && w <= 1)
        w = 1000;
    if (r.mode == ExpandMode::Vertical || h <= 0)
        h = 5000;
    double x = right ? -r.padding : r.padding, y = top ? -r.padding : r.padding, row = 0;
    std::vector<std::optional<Point>> places;
    for (const Size& box : boxes) {
        if (y > h) {
            places.push_back(std::nullopt);
            continue;
        }
        places.push_back(Point{left    ? x
                               : right ? x - box.width
                                       : x - box.width / 2,
                               bottom ? y
                               : top  ? y - box.height
                                      : y - box.height / 2});
        row = std::max(row, box.height);
        const double step = r.padding + box.width;
        x = right ? x - step : x + step;
        const double ahead = r.mode == ExpandMode::Horizontal ? x + step : x;
        if ((right && ahead < -w) || (left && ahead > w)) {
            x = right ? -r.padding : r.padding;
            y = top ? y - r.padding - row : y + r.padding + row;
            row = 0;
        }
    }
    return places;
}

void apply(const Rules& rules, AutoLayoutPanel& panel)
{
    panel.setExpandMode(rules.mode);
    panel.setHAlign(rules.h);
    panel.setVAlign(rules.v);
    panel.setSize(rules.size);
    panel.setPadding(rules.padding);
}

RectNode boxNode(const Size& size)
{
    RectNode node({0, 0, size.width, size.height});
    node.setDrawStyle(DrawStyle(Stroke::NoStroke(), Fill(Vetra::Color(1, 0, 0))));
    return node;
}

std::vector<std::optional<Point>> shownIn(const AutoLayoutPanel& panel)
{
    std::vector<std::optional<Point>> places;
    for (int i = 0; i < panel.count(); ++i) {
        const Node node = panel.getNodeAt(i);
        places.push_back(node.isVisible() ? std::optional(node.getPosition()) : std::nullopt);
    }
    return places;
}

} // namespace Tova2::LayoutTest
