#include "nodes/linenodeimpl.h"

#include "nodes/outlinereach.h"
#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <algorithm>

namespace Tova2 {

void LineNodeImpl::setLine(const QLineF& line)
{
    if (!isFinite(line.p1()) || !isFinite(line.p2()))
        return;
    if (isSame(line.p1(), m_line.p1()) && isSame(line.p2(), m_line.p2()))
        return;
    geometryChanging();
    m_line = line;
    reportChange(ChangeLevel::Geometry);
}

QRectF LineNodeImpl::geometryRect() const
{
    const auto [left, right] = std::minmax({m_line.x1(), m_line.x2()});
    const auto [top, bottom] = std::minmax({m_line.y1(), m_line.y2()});
    return {left, top, right - left, bottom - top};
}

/// To the right for a line without length.
QPointF LineNodeImpl::direction() const
{
    const double length = std::hypot(m_line.dx(), m_line.dy());
    return length > 0 && std::isfinite(length) ? QPointF(m_line.dx() / length, m_line.dy() / length)
                                               : QPointF(1, 0);
}

double LineNodeImpl::capLength() const
{
    const Stroke& stroke = drawStyle().stroke();
    return stroke.capStyle() == StrokeCapStyle::FlatCap ? 0.0 : halfStroke(stroke);
}

double LineNodeImpl::strokeReach() const
{
    if (drawStyle().stroke().capStyle() != StrokeCapStyle::SquareCap)
        return 0.5;
    const QPointF along = direction();
    return (std::abs(along.x()) + std::abs(along.y())) / 2;
}

Bounds LineNodeImpl::outline() const
{
    if (drawStyle().stroke().isNoStroke())
        return Bounds();
    const QPointF along = direction() * capLength();
    const double half = halfStroke(drawStyle().stroke());
    const QPointF aside(-direction().y() * half, direction().x() * half);
    const QPointF start = m_line.p1() - along, end = m_line.p2() + along;
    return Bounds(Vetra::fromQt(start - aside), Vetra::fromQt(end - aside),
                  Vetra::fromQt(end + aside), Vetra::fromQt(start + aside));
}

bool LineNodeImpl::outlineContains(const QPointF& point) const
{
    const Stroke& stroke = drawStyle().stroke();
    if (stroke.isNoStroke() || !isFinite(point))
        return false;
    const QPointF along = direction(), offset = point - m_line.p1();
    const double position = offset.x() * along.x() + offset.y() * along.y();
    const double distance = offset.y() * along.x() - offset.x() * along.y();
    const double length = m_line.dx() * along.x() + m_line.dy() * along.y(), cap = capLength();
    return position >= -cap && position <= length + cap && std::abs(distance) <= halfStroke(stroke);
}

void LineNodeImpl::paintNode(PaintContext& context) const
{
    if (drawStyle().stroke().isNoStroke())
        return;
    context.setStyle(drawStyle());
    context.drawLine(m_line);
}

} // namespace Tova2
