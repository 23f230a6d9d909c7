#include "nodes/geometry/rectlistpainterpathboundsimpl.h"

#include "vetra/qt.h"

#include <algorithm>

namespace Tova2 {

Bounds RectListPainterPathBoundsImpl::transformed(const Vetra::Transform& t) const
{
    const bool keepsAxes = (t.m12 == 0 && t.m21 == 0) || (t.m11 == 0 && t.m22 == 0);
    if (!keepsAxes)
        return PainterPathBoundsImpl::transformed(t);
    auto rects = m_rects;
    std::transform(rects.begin(), rects.end(), rects.begin(),
                   [&](const Rect& r) { return t.mapRect(r); });
    return Bounds(rects);
}

void RectListPainterPathBoundsImpl::buildPath() const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const auto& rect : m_rects)
        path.addRect(Vetra::toQt(rect));
    setPath(path);
}

} // namespace Tova2
