#include "nodes/geometry/polygonpainterpathboundsimpl.h"

#include "vetra/qt.h"

#include <algorithm>

namespace Tova2 {

Bounds PolygonPainterPathBoundsImpl::transformed(const Vetra::Transform& t) const
{
    auto points = m_points;
    std::transform(points.begin(), points.end(), points.begin(),
                   [&](const Point& p) { return t.map(p); });
    return Bounds(points);
}

void PolygonPainterPathBoundsImpl::buildPath() const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.moveTo(Vetra::toQt(m_points.front()));
    for (auto p = m_points.begin() + 1; p != m_points.end(); ++p)
        path.lineTo(Vetra::toQt(*p));
    path.closeSubpath();
    setPath(path);
}

} // namespace Tova2
