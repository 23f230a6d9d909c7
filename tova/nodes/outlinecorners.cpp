#include "nodes/outlinecorners.h"

#include <algorithm>

namespace Tova2 {

namespace {

constexpr auto kTopLeft = static_cast<std::size_t>(Corner::TopLeft);
constexpr auto kTopRight = static_cast<std::size_t>(Corner::TopRight);
constexpr auto kBottomLeft = static_cast<std::size_t>(Corner::BottomLeft);
constexpr auto kBottomRight = static_cast<std::size_t>(Corner::BottomRight);

double factorFor(double side, double a, double b)
{
    // Halved, since the sum of two finite radii may overflow.
    const double half = a / 2 + b / 2;
    return half > side / 2 ? side / 2 / half : 1.0;
}

/// A quarter turn clockwise around the corner's circle, from a line to its start.
void addCorner(QPainterPath& path, const QPointF& square, const QPointF& toCenter, double radius,
               double startAngle)
{
    if (!(radius > 0)) {
        path.lineTo(square);
        return;
    }
    const QPointF center = square + toCenter * radius;
    path.arcTo(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius, startAngle, -90);
}

} // namespace

CorneredRect CorneredRect::fitted() const
{
    const double factor = std::min({
        factorFor(rect.width(), radii[kTopLeft], radii[kTopRight]),
        factorFor(rect.width(), radii[kBottomLeft], radii[kBottomRight]),
        factorFor(rect.height(), radii[kTopLeft], radii[kBottomLeft]),
        factorFor(rect.height(), radii[kTopRight], radii[kBottomRight]),
    });
    CorneredRect result = *this;
    for (double& radius : result.radii)
        radius *= factor;
    return result;
}

CorneredRect CorneredRect::grown(double distance) const
{
    CorneredRect result = *this;
    result.rect.adjust(-distance, -distance, distance, distance);
    for (double& radius : result.radii)
        radius += radius > 0 ? distance : 0;
    return result;
}

bool CorneredRect::contains(const QPointF& point) const
{
    const double left = point.x() - rect.left(), right = rect.right() - point.x();
    const double top = point.y() - rect.top(), bottom = rect.bottom() - point.y();
    if (!(left >= 0 && right >= 0 && top >= 0 && bottom >= 0))
        return false;
    const auto isCutOff = [](double x, double y, double radius) {
        const double dx = 1 - x / radius, dy = 1 - y / radius;
        return x < radius && y < radius && dx * dx + dy * dy > 1;
    };
    const auto cuts = [&](std::size_t corner, double x, double y) {
        return radii[corner] > 0 && isCutOff(x, y, radii[corner]);
    };
    return !cuts(kTopLeft, left, top) && !cuts(kTopRight, right, top) &&
           !cuts(kBottomLeft, left, bottom) && !cuts(kBottomRight, right, bottom);
}

QPainterPath CorneredRect::path() const
{
    QPainterPath path(rect.topLeft() + QPointF(0, radii[kTopLeft]));
    addCorner(path, rect.topLeft(), {1, 1}, radii[kTopLeft], 180);
    addCorner(path, rect.topRight(), {-1, 1}, radii[kTopRight], 90);
    addCorner(path, rect.bottomRight(), {-1, -1}, radii[kBottomRight], 0);
    addCorner(path, rect.bottomLeft(), {1, -1}, radii[kBottomLeft], -90);
    path.closeSubpath();
    return path;
}

} // namespace Tova2
