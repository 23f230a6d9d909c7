#include "nodes/linearpathnodeimpl.h"

#include "nodes/deferrederror.h"
#include "nodes/destruction.h"

#include "nodes/values.h"

#include <algorithm>

namespace Tova2 {

void LinearPathNodeImpl::setPoints(std::vector<QPointF> points)
{
    const auto finite = [](const QPointF& p) { return isFinite(p); };
    if (!std::all_of(points.begin(), points.end(), finite) ||
        std::equal(points.begin(), points.end(), m_points.begin(), m_points.end(),
                   [](const QPointF& a, const QPointF& b) { return isSame(a, b); }))
        return;
    m_points = std::move(points);
    reportPoints();
}

void LinearPathNodeImpl::setPoint(std::size_t index, const QPointF& point)
{
    if (!isFinite(point) || isSame(point, m_points[index]))
        return;
    m_points[index] = point;
    reportPoints();
}

void LinearPathNodeImpl::append(const QPointF& point)
{
    if (!isFinite(point))
        return;
    m_points.push_back(point);
    reportPoints();
}

void LinearPathNodeImpl::scalePoints(double factor)
{
    auto points = m_points;
    for (QPointF& p : points)
        p *= factor;
    setPoints(std::move(points));
}

void LinearPathNodeImpl::translatePoints(const QPointF& distance)
{
    auto points = m_points;
    for (QPointF& p : points)
        p += distance;
    setPoints(std::move(points));
}

void LinearPathNodeImpl::reportPoints()
{
    const DestructionDelay delay;
    markCrossingsStale();
    DeferredError error;
    error.run([this] { reportChange(ChangeLevel::Geometry); });
    error.run([this] { pointsChanged(); });
    error.rethrow();
}

QPainterPath LinearPathNodeImpl::pathOf(const Range& range) const
{
    QPainterPath path(m_points[range.first]);
    for (std::size_t i = range.first; i <= range.last; ++i)
        path.lineTo(m_points[(i + 1) % m_points.size()]);
    return path;
}

QByteArray LinearPathNodeImpl::silhouetteKey() const
{
    // Marks depend on other paths.
    return m_crossings ? QByteArray() : PathNodeImpl::silhouetteKey();
}

} // namespace Tova2
