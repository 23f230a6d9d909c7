#include "nodes/outlinepolyline.h"

#include "nodes/cubic.h"
#include "nodes/segmenttests.h"

namespace Tova2 {

OutlinePolyline::OutlinePolyline(const std::vector<OutlineSubpath>& subpaths)
{
    for (const auto& subpath : subpaths)
        add(subpath);
    m_points.shrink_to_fit();
}

void OutlinePolyline::add(const OutlineSubpath& subpath)
{
    m_points.push_back(subpath.start);
    for (const auto& piece : subpath.pieces) {
        if (piece.isCurve)
            Cubic{piece.points}.appendChords(m_points, 1.0 / 2000);
        else
            m_points.push_back(piece.end());
    }
    m_ends.push_back(m_points.size());
}

// Until the visitor answers true. A filled path also has the edge that closes each subpath.
template <class Visit>
bool OutlinePolyline::anySegment(bool isFilled, Visit visit) const
{
    std::size_t begin = 0;
    for (const std::size_t end : m_ends) {
        for (std::size_t i = begin + 1; i < end; ++i) {
            if (visit(m_points[i - 1], m_points[i]))
                return true;
        }
        // The single point of a subpath without extent is visited by this as well.
        if ((isFilled || end - begin == 1) && visit(m_points[end - 1], m_points[begin]))
            return true;
        begin = end;
    }
    return false;
}

bool OutlinePolyline::passesNear(const QPointF& point, double distance) const
{
    const double squared = distance * distance;
    return anySegment(false, [&](const QPointF& a, const QPointF& b) {
        return Segments::squaredDistance(point, a, b) <= squared;
    });
}

bool OutlinePolyline::passesNear(const QRectF& rect, double distance) const
{
    return anySegment(false, [&](const QPointF& a, const QPointF& b) {
        return Segments::isNear(a, b, rect, distance);
    });
}

bool OutlinePolyline::isInside(const QPointF& point, Qt::FillRule rule) const
{
    int winding = 0;
    anySegment(true, [&](const QPointF& a, const QPointF& b) {
        winding += Segments::windingOf(point, a, b);
        return false;
    });
    // Each edge counts for one, so the number of edges passed is odd when their sum is.
    return rule == Qt::WindingFill ? winding != 0 : winding % 2 != 0;
}

bool OutlinePolyline::fillMeets(const QRectF& rect, Qt::FillRule rule) const
{
    const bool isCrossed = anySegment(
        true, [&](const QPointF& a, const QPointF& b) { return Segments::crosses(a, b, rect); });
    return isCrossed || isInside(rect.center(), rule);
}

} // namespace Tova2
