#include "nodes/outlinepolyline.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

constexpr double kFlatness = 0.05;
constexpr double kRelativeFlatness = 1.0 / 2000;
constexpr double kMostChords = 256;

double squaredLength(const QPointF& v)
{
    return v.x() * v.x() + v.y() * v.y();
}

double squaredDistance(const QPointF& p, const QPointF& a, const QPointF& b)
{
    const QPointF segment = b - a, offset = p - a;
    const double along = offset.x() * segment.x() + offset.y() * segment.y();
    if (along <= 0)
        return squaredLength(offset);
    const double length = squaredLength(segment);
    if (along >= length)
        return squaredLength(p - b);
    const double across = offset.y() * segment.x() - offset.x() * segment.y();
    return across * across / length;
}

double squaredDistance(const QPointF& p, const QRectF& rect)
{
    const QPointF offset(std::max({rect.left() - p.x(), 0.0, p.x() - rect.right()}),
                         std::max({rect.top() - p.y(), 0.0, p.y() - rect.bottom()}));
    return squaredLength(offset);
}

/// Above 0 for a point on one side of the line, below on the other.
double sideOf(const QPointF& p, const QPointF& a, const QPointF& b)
{
    return (b.x() - a.x()) * (p.y() - a.y()) - (b.y() - a.y()) * (p.x() - a.x());
}

bool isSeparate(const QPointF& a, const QPointF& b, const QRectF& rect)
{
    return std::max(a.x(), b.x()) < rect.left() || std::min(a.x(), b.x()) > rect.right() ||
           std::max(a.y(), b.y()) < rect.top() || std::min(a.y(), b.y()) > rect.bottom();
}

bool crosses(const QPointF& a, const QPointF& b, const QRectF& rect)
{
    if (isSeparate(a, b, rect))
        return false;
    const auto [least, most] =
        std::minmax({sideOf(rect.topLeft(), a, b), sideOf(rect.topRight(), a, b),
                     sideOf(rect.bottomLeft(), a, b), sideOf(rect.bottomRight(), a, b)});
    return least <= 0 && most >= 0;
}

bool isNear(const QPointF& a, const QPointF& b, const QRectF& rect, double distance)
{
    if (isSeparate(a, b, rect.adjusted(-distance, -distance, distance, distance)))
        return false;
    if (crosses(a, b, rect))
        return true;
    // Apart, the nearest two points include a corner or an end.
    const double nearest = std::min(
        {squaredDistance(a, rect), squaredDistance(b, rect), squaredDistance(rect.topLeft(), a, b),
         squaredDistance(rect.topRight(), a, b), squaredDistance(rect.bottomLeft(), a, b),
         squaredDistance(rect.bottomRight(), a, b)});
    return nearest <= distance * distance;
}

/// How often, and in which direction, the edge passes a ray from the point to the right.
int windingOf(const QPointF& p, const QPointF& a, const QPointF& b)
{
    if (a.y() <= p.y())
        return b.y() > p.y() && sideOf(p, a, b) > 0 ? 1 : 0;
    return b.y() <= p.y() && sideOf(p, a, b) < 0 ? -1 : 0;
}

} // namespace

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
            addCurve(piece);
        else
            m_points.push_back(piece.end());
    }
    m_ends.push_back(m_points.size());
}

void OutlinePolyline::addCurve(const OutlinePiece& curve)
{
    const auto& p = curve.points;
    // The second differences bound how far a chord is off, by 6/8 of them over the chords' square.
    const QPointF bend1 = p[0] - 2 * p[1] + p[2], bend2 = p[1] - 2 * p[2] + p[3];
    const double bend = std::sqrt(std::max(squaredLength(bend1), squaredLength(bend2)));
    const double flatness = std::min(kFlatness, bend * kRelativeFlatness);
    const double chords =
        flatness > 0 ? std::clamp(std::ceil(std::sqrt(0.75 * bend / flatness)), 1.0, kMostChords)
                     : 1.0;
    for (double i = 1; i < chords; ++i) {
        const double t = i / chords, s = 1 - t;
        m_points.push_back(s * s * s * p[0] + 3 * s * s * t * p[1] + 3 * s * t * t * p[2] +
                           t * t * t * p[3]);
    }
    m_points.push_back(curve.end());
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
        return squaredDistance(point, a, b) <= squared;
    });
}

bool OutlinePolyline::passesNear(const QRectF& rect, double distance) const
{
    return anySegment(
        false, [&](const QPointF& a, const QPointF& b) { return isNear(a, b, rect, distance); });
}

bool OutlinePolyline::isInside(const QPointF& point, Qt::FillRule rule) const
{
    int winding = 0;
    anySegment(true, [&](const QPointF& a, const QPointF& b) {
        winding += windingOf(point, a, b);
        return false;
    });
    // Each edge counts for one, so the number of edges passed is odd when their sum is.
    return rule == Qt::WindingFill ? winding != 0 : winding % 2 != 0;
}

bool OutlinePolyline::fillMeets(const QRectF& rect, Qt::FillRule rule) const
{
    const bool isCrossed =
        anySegment(true, [&](const QPointF& a, const QPointF& b) { return crosses(a, b, rect); });
    return isCrossed || isInside(rect.center(), rule);
}

} // namespace Tova2
