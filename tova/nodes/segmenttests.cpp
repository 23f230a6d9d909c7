#include "nodes/segmenttests.h"

#include <algorithm>

namespace Tova2::Segments {

namespace {

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

} // namespace

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

std::optional<std::pair<double, double>> partWithin(const QPointF& a, const QPointF& b,
                                                    const QRectF& rect)
{
    double first = 0, last = 1;
    const auto cut = [&](double from, double step, double least, double most) {
        if (step == 0)
            return from >= least && from <= most;
        const double one = (least - from) / step, other = (most - from) / step;
        first = std::max(first, std::min(one, other));
        last = std::min(last, std::max(one, other));
        return first < last;
    };
    // Halved, since the distance of two finite numbers may not be one.
    const double dx = 2 * (b.x() / 2 - a.x() / 2), dy = 2 * (b.y() / 2 - a.y() / 2);
    if (!std::isfinite(dx) || !std::isfinite(dy) || !cut(a.x(), dx, rect.left(), rect.right()) ||
        !cut(a.y(), dy, rect.top(), rect.bottom()))
        return {};
    return std::pair(first, last);
}

int windingOf(const QPointF& p, const QPointF& a, const QPointF& b)
{
    if (a.y() <= p.y())
        return b.y() > p.y() && sideOf(p, a, b) > 0 ? 1 : 0;
    return b.y() <= p.y() && sideOf(p, a, b) < 0 ? -1 : 0;
}

} // namespace Tova2::Segments
