#include "nodes/geometry/roundedrectpainterpathboundsimpl.h"

#include "vetra/qt.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

// How far a coordinate lies beyond the straight part of a side, in radii: 0 along that part, 1 on
// the side's end.
double beyondStraight(double offsetFromCenter, double side, double radius)
{
    const double straight = side / 2 - radius;
    return std::max(0.0, std::abs(offsetFromCenter) - straight) / radius;
}

} // namespace

Bounds RoundedRectPainterPathBoundsImpl::transformed(const Vetra::Transform& t) const
{
    if (t.m12 != 0 || t.m21 != 0)
        return PainterPathBoundsImpl::transformed(t);
    return Bounds(RoundedRect(t.mapRect(m_shape.rect()), m_shape.roundedX() * std::abs(t.m11),
                              m_shape.roundedY() * std::abs(t.m22)));
}

bool RoundedRectPainterPathBoundsImpl::contains(const Point& point) const
{
    const auto& rect = m_shape.rect();
    const double radiusX = std::min(m_shape.roundedX(), rect.width / 2);
    const double radiusY = std::min(m_shape.roundedY(), rect.height / 2);
    if (radiusX == 0 || radiusY == 0)
        return rect.contains(point);
    const auto d = point - rect.center();
    const double x = beyondStraight(d.x, rect.width, radiusX);
    const double y = beyondStraight(d.y, rect.height, radiusY);
    return x * x + y * y <= 1;
}

void RoundedRectPainterPathBoundsImpl::buildPath() const
{
    QPainterPath path;
    path.addRoundedRect(Vetra::toQt(m_shape.rect()), m_shape.roundedX(), m_shape.roundedY());
    setPath(path);
}

} // namespace Tova2
