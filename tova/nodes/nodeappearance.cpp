#include "nodes/destruction.h"
#include "nodes/nodeextras.h"
#include "nodes/nodeimpl.h"
#include "nodes/pen.h"
#include "nodes/scenelink.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

/// How much another style makes stale. Colours leave the area that is painted and hit, and effects
/// that which is hit.
ChangeLevel levelOfChange(const DrawStyle& a, const DrawStyle& b)
{
    Stroke stroke = a.stroke();
    stroke.setColor(b.stroke().color());
    if (stroke != b.stroke() || a.fill().isNoFill() != b.fill().isNoFill())
        return ChangeLevel::Geometry;
    return a.effect() == b.effect() ? ChangeLevel::Appearance : ChangeLevel::Reach;
}

} // namespace

QRectF NodeImpl::strokedRect() const
{
    const QRectF rect = geometryRect();
    const Stroke& stroke = m_style.stroke();
    if (stroke.isNoStroke() || !hasOutline())
        return rect;
    const double reach = drawnWidth(stroke, 1) * strokeReach();
    return rect.adjusted(-reach, -reach, reach, reach);
}

QRectF NodeImpl::strokedRectAt(double viewScale) const
{
    const Stroke& stroke = m_style.stroke();
    const bool isAsWide = drawnWidth(stroke, viewScale) == drawnWidth(stroke, 1);
    if (isAsWide && !geometryDependsOnScale())
        return strokedRect();
    const double reach = hasOutline() ? drawnWidth(stroke, viewScale) * strokeReach() : 0;
    return geometryRectAt(viewScale).adjusted(-reach, -reach, reach, reach);
}

Bounds NodeImpl::outline() const
{
    return Bounds(strokedRect());
}

bool NodeImpl::outlineContains(const QPointF& point) const
{
    const Bounds own = outline();
    return !own.isEmpty() && own.contains(Vetra::fromQt(point));
}

bool NodeImpl::outlineIntersects(const Bounds& area) const
{
    // Empty bounds still have a position, which closed edges would let touch.
    const Bounds own = outline();
    return !own.isEmpty() && own.intersectsWith(area);
}

bool NodeImpl::hasCustomHitTest() const
{
    return m_extras && m_extras->hitTester;
}

void NodeImpl::setHitTester(CustomHitTestFunctor* functor)
{
    if (!functor && !m_extras)
        return;
    const DestructionDelay delay;
    madeExtras().hitTester = Vetra::Holder<CustomHitTestFunctor>(functor);
    if (m_scene)
        m_scene->noteHitTester(*this);
}

QRectF NodeImpl::customHitBounds()
{
    if (!hasCustomHitTest())
        return {};
    const auto functor = m_extras->hitTester;
    const QRectF rect = Vetra::toQt(functor->hitTestBounds(handle(), 0.0).boundingRect());
    return isFinite(rect) ? rect : QRectF();
}

bool NodeImpl::hitContains(const QPointF& point)
{
    if (hasCustomHitTest()) {
        const auto functor = m_extras->hitTester;
        return functor->contains(handle(), 0.0, Vetra::fromQt(point));
    }
    return outlineContains(point);
}

bool NodeImpl::hitIntersects(const QRectF& rect)
{
    if (hasCustomHitTest()) {
        const auto functor = m_extras->hitTester;
        return functor->intersects(handle(), 0.0, Vetra::fromQt(rect));
    }
    return outlineIntersects(Bounds(rect));
}

bool NodeImpl::hitIntersects(const Bounds& area)
{
    if (hasCustomHitTest()) {
        const auto functor = m_extras->hitTester;
        return functor->intersects(handle(), 0.0, area);
    }
    return outlineIntersects(area);
}

void NodeImpl::setDrawStyle(const DrawStyle& style)
{
    if (style == m_style)
        return;
    const auto level = levelOfChange(style, m_style);
    m_style = style;
    reportChange(level);
}

bool NodeImpl::isVisibleItself() const
{
    // Not QGraphicsItem::isVisible, which is false as well when an ancestor is hidden.
    return m_isReady && isVisibleTo(parentItem());
}

bool NodeImpl::isVisibleToScene() const
{
    return m_isReady && isVisibleTo(nullptr);
}

void NodeImpl::setNodeVisible(bool visible)
{
    if (visible == isVisibleTo(parentItem()))
        return;
    QGraphicsItem::setVisible(visible);
    reportChange(ChangeLevel::Presence);
}

void NodeImpl::setNodeOpacity(double opacity)
{
    if (!std::isfinite(opacity))
        return;
    const double clamped = std::clamp(opacity, 0.0, 1.0);
    if (clamped == QGraphicsItem::opacity())
        return;
    QGraphicsItem::setOpacity(clamped);
    reportChange(ChangeLevel::Presence);
}

void NodeImpl::setCacheType(CacheType type)
{
    if (type == m_cacheType || type > CacheType::DeviceCoordinateCache)
        return;
    m_cacheType = type;
    reportChange(ChangeLevel::Appearance);
}

void NodeImpl::setMinLODQuality(std::uint8_t quality)
{
    if (quality == m_minQuality)
        return;
    m_minQuality = quality;
    reportChange(ChangeLevel::Appearance);
}

bool NodeImpl::canRenderAtLODQuality(std::uint8_t quality, double) const
{
    return quality >= m_minQuality;
}

void NodeImpl::setClipsChildren(bool clips)
{
    if (clips == m_clipsChildren)
        return;
    m_clipsChildren = clips;
    reportChange(ChangeLevel::Presence);
}

bool NodeImpl::stacksBehindParent() const
{
    return flags() & ItemStacksBehindParent;
}

void NodeImpl::setStacksBehindParent(bool behind)
{
    if (behind == stacksBehindParent())
        return;
    setFlag(ItemStacksBehindParent, behind);
    reportChange(ChangeLevel::Stacking);
}

void NodeImpl::setIgnoresTransformations(bool ignores)
{
    if (ignores == m_ignoresTransformations)
        return;
    m_ignoresTransformations = ignores;
    reportChange(ChangeLevel::Placement);
}

} // namespace Tova2
