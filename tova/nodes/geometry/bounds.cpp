#include "tova/nodes/geometry/bounds.h"

#include "nodes/geometry/ellipsepainterpathboundsimpl.h"
#include "nodes/geometry/pathoperations.h"
#include "nodes/geometry/purepainterpathboundsimpl.h"
#include "nodes/geometry/roundedrectpainterpathboundsimpl.h"

#include "vetra/qt.h"

namespace Tova2 {

Bounds::Bounds(const Rect& rect, ImplPointer impl) noexcept : m_rect(rect)
{
    if (rect.isValid() && fitsPath(rect))
        m_impl = std::move(impl);
}

Bounds::Bounds(const QRectF& rect) noexcept : m_rect(Vetra::fromQt(rect)) {}

Bounds::Bounds(const Ellipse& ellipse)
    : Bounds(ellipse.rect(), new EllipsePainterPathBoundsImpl(ellipse.rect()))
{}

Bounds::Bounds(const RoundedRect& roundedRect)
    : Bounds(roundedRect.rect(), new RoundedRectPainterPathBoundsImpl(roundedRect))
{}

Bounds::Bounds(const QPainterPath& path)
{
    if (!path.isEmpty() && isFinite(path))
        *this = Bounds(boundingRectOf(path), new PurePainterPathBoundsImpl(path));
}

Bounds::Bounds(const Vetra::Shape& shape) : Bounds(Vetra::toQt(shape)) {}

std::vector<Bounds::Rect> Bounds::boundingRects() const
{
    return m_impl ? m_impl->boundingRects() : std::vector<Rect>{m_rect};
}

bool Bounds::contains(const Point& point) const
{
    return m_rect.contains(point) && (!m_impl || m_impl->contains(point));
}

bool Bounds::contains(const Bounds& other) const
{
    if (!m_rect.contains(other.m_rect))
        return false;
    if (!m_impl || m_impl == other.m_impl)
        return true;
    if (!other.m_impl)
        return m_impl->contains(other.m_rect);
    // The toolkit takes a path that shares edges with another for one that sticks out.
    return m_impl->equals(*other.m_impl) || m_impl->contains(*other.m_impl);
}

bool Bounds::intersectsWith(const Bounds& other) const
{
    if (!m_rect.intersects(other.m_rect))
        return false;
    if (m_impl == other.m_impl)
        return true;
    if (m_impl && other.m_impl)
        return m_impl->intersects(*other.m_impl);
    return m_impl ? m_impl->intersects(other.m_rect) : other.m_impl->intersects(m_rect);
}

bool Bounds::intersectsWith(const Point& point, double tolerance) const
{
    const Rect square{point.x - tolerance, point.y - tolerance, 2 * tolerance, 2 * tolerance};
    if (!m_rect.intersects(square))
        return false;
    if (!square.isValid() || !isFinite(square))
        return !m_impl || m_impl->intersects(square);
    // On the stack, since nothing shares it.
    const EllipsePainterPathBoundsImpl circle(square);
    if (!m_impl)
        return circle.intersects(m_rect);
    // Comparing two paths costs many times as much as testing a point.
    return m_impl->contains(point) || m_impl->intersects(circle);
}

Bounds Bounds::intersectedWith(const Bounds& other) const
{
    if (!m_impl && !other.m_impl)
        return Bounds(m_rect.intersected(other.m_rect));
    if (m_impl == other.m_impl)
        return *this;
    if (m_impl && other.m_impl)
        return m_impl->intersectedWith(*other.m_impl);
    const Bounds& bare = m_impl ? other : *this;
    const Bounds& shaped = m_impl ? *this : other;
    return bare.m_rect.contains(shaped.m_rect) ? shaped
                                               : shaped.m_impl->intersectedWith(bare.m_rect);
}

Bounds Bounds::unionedWith(const Bounds& other) const
{
    const bool bothBare = !m_impl && !other.m_impl;
    if (!m_impl && m_rect.contains(other.m_rect))
        return *this;
    if (!other.m_impl && other.m_rect.contains(m_rect))
        return other;
    if (bothBare)
        return Bounds(std::vector<Rect>{m_rect, other.m_rect});
    if (m_impl == other.m_impl || other.isEmpty())
        return *this;
    if (isEmpty())
        return other;
    return m_impl ? m_impl->unionedWith(other) : other.m_impl->unionedWith(m_rect);
}

Bounds Bounds::transformed(const Vetra::Transform& t) const
{
    if (t.isIdentity())
        return *this;
    if (isEmpty())
        return transformedEmpty(t);
    const Rect& r = m_rect;
    const Bounds result = m_impl ? m_impl->transformed(t)
                                 : Bounds(t.map(r.topLeft()), t.map({r.right(), r.y}),
                                          t.map({r.right(), r.bottom()}), t.map({r.x, r.bottom()}));
    return isFinite(result.m_rect) ? result : Bounds();
}

// A position, or a line along an axis, keeps what it can of itself without gaining an area.
Bounds Bounds::transformedEmpty(const Vetra::Transform& t) const
{
    Rect rect = t.mapRect(m_rect);
    if (!isFinite(rect))
        return Bounds();
    if (rect.isValid()) {
        const Point position = t.map(m_rect.topLeft());
        rect = {position.x, position.y, 0, 0};
    }
    return Bounds(rect);
}

QPainterPath Bounds::asQPainterPath() const
{
    if (m_impl)
        return m_impl->asQPainterPath();
    return isEmpty() ? QPainterPath() : pathOf(m_rect);
}

Vetra::Shape Bounds::asShape() const
{
    return Vetra::fromQt(asQPainterPath());
}

bool Bounds::operator==(const Bounds& other) const
{
    // A description implies its rectangle, which must not turn a comparison with a tolerance into
    // an exact one.
    if (m_impl && other.m_impl)
        return m_impl == other.m_impl || m_impl->equals(*other.m_impl);
    return !m_impl && !other.m_impl && m_rect == other.m_rect;
}

} // namespace Tova2
