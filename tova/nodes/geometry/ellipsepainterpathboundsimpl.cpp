#include "nodes/geometry/ellipsepainterpathboundsimpl.h"

#include "vetra/qt.h"

#include <algorithm>

namespace Tova2 {

Bounds EllipsePainterPathBoundsImpl::transformed(const Vetra::Transform& t) const
{
    if (t.m12 != 0 || t.m21 != 0)
        return PainterPathBoundsImpl::transformed(t);
    return Bounds(Ellipse(t.mapRect(m_rect)));
}

bool EllipsePainterPathBoundsImpl::intersects(const Rect& rect) const
{
    // The point of the rectangle that is nearest to the centre. Not `std::clamp`: a width may be
    // negative.
    const auto center = m_rect.center();
    return contains(Point{std::max(rect.x, std::min(center.x, rect.right())),
                          std::max(rect.y, std::min(center.y, rect.bottom()))});
}

bool EllipsePainterPathBoundsImpl::contains(const Point& point) const
{
    const auto d = point - m_rect.center();
    const double x = d.x / (m_rect.width / 2), y = d.y / (m_rect.height / 2);
    return x * x + y * y <= 1;
}

bool EllipsePainterPathBoundsImpl::contains(const Rect& rect) const
{
    return contains(rect.topLeft()) && contains(Point{rect.right(), rect.y}) &&
           contains(Point{rect.x, rect.bottom()}) && contains(Point{rect.right(), rect.bottom()});
}

void EllipsePainterPathBoundsImpl::buildPath() const
{
    QPainterPath path;
    path.addEllipse(Vetra::toQt(m_rect));
    setPath(path);
}

} // namespace Tova2
