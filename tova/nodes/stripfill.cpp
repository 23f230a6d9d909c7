#include "nodes/stripfill.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

StripFill::StripFill(const QRectF& seen, double stripWidth) : m_seen(seen), m_width(stripWidth)
{
    m_strips.resize(static_cast<std::size_t>(std::ceil(seen.width() / stripWidth)));
}

void StripFill::addRing(std::span<const QPointF> points)
{
    for (std::size_t i = 0; i < points.size(); ++i)
        addEdge(points[i], points[i + 1 == points.size() ? 0 : i + 1]);
    for (const std::size_t strip : m_touched) {
        m_strips[strip].path.closeSubpath();
        m_strips[strip].isInRing = false;
    }
    m_touched.clear();
}

// Outside its strip an edge runs along the strip's side instead, which encloses the same points
// inside. What leaves by a side comes back by it, so the way along it needs no points of its own.
void StripFill::addEdge(const QPointF& from, const QPointF& to)
{
    const double count = static_cast<double>(m_strips.size());
    const auto stripAt = [&](double x) { return std::floor((x - m_seen.left()) / m_width); };
    const double first = stripAt(from.x()), last = stripAt(to.x());
    const double low = std::max(std::min(first, last), 0.0);
    const double high = std::min(std::max(first, last), count - 1);
    const auto visit = [&](double strip) {
        const double left = m_seen.left() + strip * m_width, right = left + m_width;
        const auto at = [&](double x) {
            const double part = (x - from.x()) / (to.x() - from.x());
            return QPointF(x, from.y() + part * (to.y() - from.y()));
        };
        const auto within = [&](const QPointF& p) {
            return p.x() < left ? at(left) : p.x() > right ? at(right) : p;
        };
        addWithin(static_cast<std::size_t>(strip), within(from), within(to));
    };
    if (first <= last) {
        for (double strip = low; strip <= high; ++strip)
            visit(strip);
    } else {
        for (double strip = high; strip >= low; --strip)
            visit(strip);
    }
}

// The same upwards and downwards, since the toolkit is slow with what lies far outside.
void StripFill::addWithin(std::size_t index, const QPointF& from, const QPointF& to)
{
    const double top = m_seen.top(), bottom = m_seen.bottom();
    const auto within = [&](const QPointF& p) {
        return QPointF(p.x(), std::clamp(p.y(), top, bottom));
    };
    const auto at = [&](double y) {
        const double part = (y - from.y()) / (to.y() - from.y());
        return QPointF(from.x() + part * (to.x() - from.x()), y);
    };
    const auto isBetween = [](double y, double a, double b) {
        return (a < y && y < b) || (b < y && y < a);
    };
    Strip& strip = m_strips[index];
    if (!strip.isInRing)
        m_touched.push_back(index);
    addPoint(strip, within(from));
    const bool isDownwards = from.y() < to.y();
    for (const double y : {isDownwards ? top : bottom, isDownwards ? bottom : top}) {
        if (isBetween(y, from.y(), to.y()))
            addPoint(strip, at(y));
    }
    addPoint(strip, within(to));
}

void StripFill::addPoint(Strip& strip, const QPointF& point)
{
    if (!strip.isInRing)
        strip.path.moveTo(point);
    else
        strip.path.lineTo(point);
    strip.isInRing = true;
}

void StripFill::paint(QPainter& painter, Qt::FillRule rule)
{
    for (Strip& strip : m_strips) {
        if (strip.path.isEmpty())
            continue;
        strip.path.setFillRule(rule);
        painter.drawPath(strip.path);
    }
}

} // namespace Tova2
