#include "nodes/geometry/fourpointpainterpathboundsimpl.h"

#include "nodes/geometry/almostequal.h"

#include "vetra/qt.h"

#include <algorithm>

namespace Tova2 {

bool FourPointPainterPathBoundsImpl::equals(const BoundsImpl& other) const
{
    const auto* quad = dynamic_cast<const FourPointPainterPathBoundsImpl*>(&other);
    if (!quad)
        return PainterPathBoundsImpl::equals(other);
    return std::equal(m_points.begin(), m_points.end(), quad->m_points.begin(),
                      [](const Point& a, const Point& b) { return almostEqual(a, b); });
}

Bounds FourPointPainterPathBoundsImpl::transformed(const Vetra::Transform& t) const
{
    return Bounds(t.map(m_points[0]), t.map(m_points[1]), t.map(m_points[2]), t.map(m_points[3]));
}

void FourPointPainterPathBoundsImpl::buildPath() const
{
    QPainterPath path(Vetra::toQt(m_points[0]));
    for (std::size_t i = 1; i < m_points.size(); ++i)
        path.lineTo(Vetra::toQt(m_points[i]));
    path.closeSubpath();
    setPath(path);
}

} // namespace Tova2
