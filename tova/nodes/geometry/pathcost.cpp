#include "nodes/geometry/pathcost.h"

#include "tova/nodes/geometry/limits.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace Tova2 {

namespace {

struct Segment {
    QPointF from, to;
};

// Curves count by their control polygons, which cross at least about as often.
void appendSegments(const QPainterPath& path, std::vector<Segment>& segments)
{
    for (int i = 1; i < path.elementCount(); ++i)
        if (!path.elementAt(i).isMoveTo())
            segments.push_back({path.elementAt(i - 1), path.elementAt(i)});
}

bool isLeftOf(const QPointF& p, const Segment& s)
{
    const QPointF along = s.to - s.from, across = p - s.from;
    return along.x() * across.y() > along.y() * across.x();
}

bool cross(const Segment& a, const Segment& b)
{
    return isLeftOf(b.from, a) != isLeftOf(b.to, a) && isLeftOf(a.from, b) != isLeftOf(a.to, b);
}

// Each crossing, be it of a path with itself, splits segments that the toolkit then compares with
// all others.
bool crossTooOften(const QPainterPath& a, const QPainterPath& b)
{
    std::vector<Segment> segments;
    segments.reserve(static_cast<std::size_t>(a.elementCount() + b.elementCount()));
    appendSegments(a, segments);
    appendSegments(b, segments);
    std::size_t count = 0;
    for (auto s = segments.begin(); s != segments.end(); ++s) {
        count += static_cast<std::size_t>(std::count_if(
            segments.begin(), s, [&](const Segment& other) { return cross(*s, other); }));
        if (count > Limits::pathCrossings)
            return true;
    }
    return false;
}

} // namespace

double extentOf(const QPainterPath& path)
{
    const QRectF r = path.controlPointRect();
    return std::max(
        {std::abs(r.left()), std::abs(r.top()), std::abs(r.right()), std::abs(r.bottom())});
}

bool canCompare(const QPainterPath& a, const QPainterPath& b)
{
    const auto na = static_cast<std::size_t>(a.elementCount());
    const auto nb = static_cast<std::size_t>(b.elementCount());
    return na * nb <= Limits::pathElementsProduct &&
           std::max(extentOf(a), extentOf(b)) <= Limits::pathCoordinate;
}

bool canCombine(const QPainterPath& a, const QPainterPath& b)
{
    return canCompare(a, b) && !crossTooOften(a, b);
}

} // namespace Tova2
