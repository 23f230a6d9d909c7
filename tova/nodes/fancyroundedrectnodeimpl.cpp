#include "nodes/fancyroundedrectnodeimpl.h"

#include "nodes/effects/silhouettekey.h"
#include "nodes/outlinereach.h"
#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include <QLineF>

#include <algorithm>

namespace Tova2 {

void FancyRoundedRectNodeImpl::setRect(const QRectF& rect)
{
    if (!isFinite(rect) || isSame(rect, m_given.rect))
        return;
    m_given.rect = rect;
    reportChange(ChangeLevel::Geometry);
}

void FancyRoundedRectNodeImpl::setRadius(Corner corner, double radius)
{
    double& stored = m_given.radii[static_cast<std::size_t>(corner)];
    if (!(radius >= 0) || !std::isfinite(radius) || radius == stored)
        return;
    stored = radius;
    reportChange(ChangeLevel::Geometry);
}

double FancyRoundedRectNodeImpl::strokeReach() const
{
    return rightAngleStrokeReach(drawStyle().stroke());
}

CorneredRect FancyRoundedRectNodeImpl::outlineShape() const
{
    CorneredRect shape = m_given.fitted().grown(halfStroke(drawStyle().stroke()));
    shape.rect = strokedHull(m_given.rect, drawStyle().stroke());
    return shape;
}

Bounds FancyRoundedRectNodeImpl::outline() const
{
    return isDrawable(m_given.rect) ? Bounds(outlineShape().path()) : Bounds();
}

bool FancyRoundedRectNodeImpl::outlineContains(const QPointF& point) const
{
    return isDrawable(m_given.rect) && outlineShape().contains(point);
}

void FancyRoundedRectNodeImpl::paintNode(PaintContext& context) const
{
    const QRectF& rect = m_given.rect;
    if (!isDrawable(rect))
        return;
    if (context.drawTiny(rect, drawStyle(), 1))
        return;
    context.setStyle(drawStyle(), std::max(rect.width(), rect.height()));
    if (rect.isEmpty()) {
        context.drawLine({rect.topLeft(), rect.bottomRight()});
        return;
    }
    if (m_path.isEmpty())
        m_path = m_given.fitted().path();
    context.drawPath(m_path);
}

void FancyRoundedRectNodeImpl::dropCaches(ChangeLevel level)
{
    if (level == ChangeLevel::Geometry)
        m_path = QPainterPath();
}

QByteArray FancyRoundedRectNodeImpl::silhouetteKey() const
{
    const auto& radii = m_given.radii;
    return SilhouetteKey()
        .add(m_given.rect, radii[0], radii[1], radii[2], radii[3], drawStyle())
        .bytes();
}

} // namespace Tova2
