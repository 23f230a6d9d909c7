#include "nodes/geometry/painterpathboundsimpl.h"

#include "nodes/geometry/pathoperations.h"
#include "tova/nodes/geometry/limits.h"

#include "vetra/qt.h"

namespace Tova2 {

bool PainterPathBoundsImpl::equals(const BoundsImpl& other) const
{
    return asQPainterPath() == other.asQPainterPath();
}

Bounds PainterPathBoundsImpl::transformed(const Vetra::Transform& t) const
{
    return Bounds(mapped(asQPainterPath(), t));
}

Bounds PainterPathBoundsImpl::unionedWith(const Bounds& other) const
{
    const auto* impl = BoundsFactory::impl(other);
    return impl ? unite(asQPainterPath(), impl->asQPainterPath())
                : unionedWith(other.boundingRect());
}

Bounds PainterPathBoundsImpl::unionedWith(const Rect& rect) const
{
    if (!fitsPath(rect))
        return Bounds(boundingRectOf(asQPainterPath()).united(rect));
    return unite(asQPainterPath(), pathOf(rect));
}

Bounds PainterPathBoundsImpl::intersectedWith(const BoundsImpl& other) const
{
    return intersect(asQPainterPath(), other.asQPainterPath());
}

Bounds PainterPathBoundsImpl::intersectedWith(const Rect& rect) const
{
    return intersect(asQPainterPath(), rect);
}

bool PainterPathBoundsImpl::intersects(const BoundsImpl& other) const
{
    return other.intersectsPath(asQPainterPath());
}

bool PainterPathBoundsImpl::intersects(const Rect& rect) const
{
    return intersectsRect(asQPainterPath(), rect);
}

bool PainterPathBoundsImpl::contains(const Point& point) const
{
    return containsPoint(asQPainterPath(), point);
}

bool PainterPathBoundsImpl::contains(const BoundsImpl& other) const
{
    return containsPath(other.asQPainterPath());
}

bool PainterPathBoundsImpl::contains(const Rect& rect) const
{
    return containsRect(asQPainterPath(), rect);
}

bool PainterPathBoundsImpl::containsPath(const QPainterPath& path) const
{
    return containsAll(asQPainterPath(), path);
}

bool PainterPathBoundsImpl::intersectsPath(const QPainterPath& path) const
{
    return intersectsAny(asQPainterPath(), path);
}

std::vector<Bounds::Rect> PainterPathBoundsImpl::boundingRects() const
{
    const auto& path = asQPainterPath();
    // Joining the parts that overlap is quadratic in their number.
    const bool isLong = static_cast<std::size_t>(path.elementCount()) > Limits::pathElementsProduct;
    const auto polygons = isLong ? path.toSubpathPolygons() : path.toFillPolygons();
    std::vector<Rect> rects;
    rects.reserve(static_cast<std::size_t>(polygons.size()));
    for (const auto& polygon : polygons)
        rects.push_back(Vetra::fromQt(polygon.boundingRect()));
    return rects;
}

const QPainterPath& PainterPathBoundsImpl::asQPainterPath() const
{
    if (!m_isBuilt) {
        buildPath();
        m_isBuilt = true;
    }
    return m_path;
}

} // namespace Tova2
