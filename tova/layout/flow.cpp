#include "layout/flow.h"

#include <algorithm>

namespace Tova2 {

namespace {

using ExpandMode = AutoLayoutPanel::ExpandMode;

// What "as far as it goes" means, in units of the panel.
constexpr double kWidest = 1000, kHighest = 5000;

double widthLimit(const FlowRules& rules, double scale)
{
    const double width = (rules.size.width > 1 ? rules.size.width : 0) / scale;
    return rules.expandMode == ExpandMode::Horizontal && width <= 1 ? kWidest : width;
}

double heightLimit(const FlowRules& rules, double scale)
{
    const double height = rules.size.height / scale;
    return rules.expandMode == ExpandMode::Vertical || height <= 0 ? kHighest : height;
}

} // namespace

Flow::Flow(const FlowRules& rules, double scale)
    : m_rules(rules), m_width(widthLimit(rules, scale)), m_height(heightLimit(rules, scale))
{
    const bool isUpwards = rules.vAlign == VerticalAlignment::Top;
    m_cursor = {rowStart(), isUpwards ? -rules.padding : rules.padding};
}

double Flow::rowStart() const
{
    return m_rules.hAlign == HorizontalAlignment::Right ? -m_rules.padding : m_rules.padding;
}

std::optional<QPointF> Flow::place(const QSizeF& box)
{
    if (m_cursor.y() > m_height)
        return std::nullopt;
    const QPointF corner = cornerOf(box);
    m_rowHeight = std::max(m_rowHeight, box.height());
    advance(m_rules.padding + box.width());
    return corner;
}

QPointF Flow::cornerOf(const QSizeF& box) const
{
    QPointF corner = m_cursor;
    if (m_rules.hAlign != HorizontalAlignment::Left)
        corner.rx() -= box.width() / (m_rules.hAlign == HorizontalAlignment::Right ? 1 : 2);
    if (m_rules.vAlign != VerticalAlignment::Bottom)
        corner.ry() -= box.height() / (m_rules.vAlign == VerticalAlignment::Top ? 1 : 2);
    return corner;
}

void Flow::advance(double step)
{
    m_cursor.rx() += m_rules.hAlign == HorizontalAlignment::Right ? -step : step;
    if (mustWrap(step))
        wrap();
}

// Looks as far ahead as the last box was wide, also to the left, where that is nearer.
bool Flow::mustWrap(double step) const
{
    const bool looksAhead = m_rules.expandMode == ExpandMode::Horizontal;
    const double ahead = m_cursor.x() + (looksAhead ? step : 0);
    switch (m_rules.hAlign) {
    case HorizontalAlignment::Left:
        return ahead > m_width;
    case HorizontalAlignment::Right:
        return ahead < -m_width;
    default:
        return false;
    }
}

void Flow::wrap()
{
    const double step = m_rules.padding + m_rowHeight;
    m_cursor.setX(rowStart());
    m_cursor.ry() += m_rules.vAlign == VerticalAlignment::Top ? -step : step;
    m_rowHeight = 0;
}

} // namespace Tova2
