#include "tova/nodes/geometry/bounds.h"

#include "nodes/geometry/almostequal.h"
#include "nodes/geometry/fourpointpainterpathboundsimpl.h"
#include "nodes/geometry/pathoperations.h"
#include "nodes/geometry/polygonpainterpathboundsimpl.h"
#include "nodes/geometry/rectlistpainterpathboundsimpl.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace Tova2 {

namespace {

using Point = Bounds::Point;
using Rect = Bounds::Rect;

// The zero rectangle when the four are no rectangle. Either the first side is the horizontal one,
// or the second is.
Rect rectangleOf(const Point& p1, const Point& p2, const Point& p3, const Point& p4)
{
    if (almostEqual(p1.y, p2.y) && almostEqual(p2.x, p3.x) && almostEqual(p3.y, p4.y) &&
        almostEqual(p4.x, p1.x))
        return Rect::fromCorners({p1.x, p2.y}, {p3.x, p4.y});
    if (almostEqual(p1.x, p2.x) && almostEqual(p2.y, p3.y) && almostEqual(p3.x, p4.x) &&
        almostEqual(p4.y, p1.y))
        return Rect::fromCorners({p2.x, p1.y}, {p4.x, p3.y});
    return {};
}

template <class Points>
bool areFinite(const Points& points)
{
    return std::all_of(points.begin(), points.end(),
                       [](const Point& p) { return std::isfinite(p.x) && std::isfinite(p.y); });
}

template <class Points>
Rect boundingBoxOf(const Points& points)
{
    Rect box{points[0].x, points[0].y, 0, 0};
    for (const auto& p : points)
        box = box.united({p.x, p.y, 0, 0});
    return box;
}

// Rectangles of a list that are worth keeping, and the box around them.
struct RectCollector {
    Rect box;
    std::vector<Rect> kept;

    void add(const Rect& rect)
    {
        // Whatever lies in the box counts as known, even when it lies in a gap.
        if (!rect.isValid() || (!kept.empty() && box.contains(rect)))
            return;
        if (kept.empty() || rect.contains(box)) {
            kept.clear();
            box = rect;
        } else {
            box = box.united(rect);
        }
        kept.push_back(rect);
    }
};

} // namespace

Bounds::Bounds(const Point& p1, const Point& p2, const Point& p3, const Point& p4)
{
    const std::array<Point, 4> points{p1, p2, p3, p4};
    if (!areFinite(points))
        return;
    if (const Rect rect = rectangleOf(p1, p2, p3, p4); rect.isValid())
        m_rect = rect;
    else
        *this = Bounds(boundingBoxOf(points), new FourPointPainterPathBoundsImpl(points));
}

Bounds::Bounds(const std::vector<Point>& p)
{
    if (p.size() < 3 || !areFinite(p))
        return;
    const bool isQuadrilateral = p.size() == 4 || (p.size() == 5 && p.back() == p.front());
    const Rect rect = isQuadrilateral ? rectangleOf(p[0], p[1], p[2], p[3]) : Rect{};
    if (rect.isValid())
        m_rect = rect;
    else
        *this = Bounds(boundingBoxOf(p), new PolygonPainterPathBoundsImpl(p));
}

Bounds::Bounds(const std::vector<Rect>& rects)
{
    if (rects.size() == 1) {
        m_rect = rects.front();
        return;
    }
    RectCollector collector;
    for (const auto& rect : rects)
        collector.add(rect);
    m_rect = collector.box;
    if (collector.kept.size() > 1)
        *this = Bounds(m_rect, new RectListPainterPathBoundsImpl(std::move(collector.kept)));
}

} // namespace Tova2
