#include "nodes/roundedrectnodeimpl.h"

#include "nodes/effects/silhouettekey.h"
#include "nodes/geometry/roundedrectpainterpathboundsimpl.h"
#include "nodes/outlinereach.h"
#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <QLineF>

#include <algorithm>

namespace Tova2 {

void RoundedRectNodeImpl::setRect(const QRectF& rect)
{
    if (!isFinite(rect) || isSame(rect, m_rect))
        return;
    m_rect = rect;
    reportChange(ChangeLevel::Geometry);
}

void RoundedRectNodeImpl::setRadius(double radius)
{
    // Not `radius <= 0`: NaN has to be dropped as well.
    if (!(radius > 0) || !std::isfinite(radius) || almostEqual(radius, m_radius))
        return;
    m_radius = radius;
    reportChange(ChangeLevel::Geometry);
}

// The corners stay circular, so one radius fits both sides.
double RoundedRectNodeImpl::drawnRadius() const
{
    return std::min({m_radius, m_rect.width() / 2, m_rect.height() / 2});
}

double RoundedRectNodeImpl::strokeReach() const
{
    return smoothStrokeReach(drawStyle().stroke());
}

// What lies at half the stroke from a circular corner is again a circular corner.
RoundedRect RoundedRectNodeImpl::outlineShape() const
{
    const double drawn = drawnRadius();
    const double radius = drawn > 0 ? drawn + halfStroke(drawStyle().stroke()) : 0;
    return RoundedRect(Vetra::fromQt(strokedHull(m_rect, drawStyle().stroke())), radius, radius);
}

Bounds RoundedRectNodeImpl::outline() const
{
    return isDrawable(m_rect) ? Bounds(outlineShape()) : Bounds();
}

bool RoundedRectNodeImpl::outlineContains(const QPointF& point) const
{
    if (!isDrawable(m_rect))
        return false;
    // On the stack, since nothing shares it.
    const RoundedRect shape = outlineShape();
    return shape.rect().contains(Vetra::fromQt(point)) &&
           RoundedRectPainterPathBoundsImpl(shape).contains(Vetra::fromQt(point));
}

void RoundedRectNodeImpl::paintNode(PaintContext& context) const
{
    if (!isDrawable(m_rect))
        return;
    if (context.drawTiny(m_rect, drawStyle(), 1))
        return;
    context.setStyle(drawStyle(), std::max(m_rect.width(), m_rect.height()));
    if (m_rect.isEmpty())
        context.drawLine({m_rect.topLeft(), m_rect.bottomRight()});
    else
        context.drawRoundedRect(m_rect, drawnRadius());
}

QPainterPath RoundedRectNodeImpl::silhouetteOutline(double viewScale) const
{
    return SilhouetteBox::around(m_rect, drawnRadius(), drawStyle(), viewScale).path();
}

std::optional<SilhouetteBox> RoundedRectNodeImpl::silhouetteBox(double viewScale) const
{
    return SilhouetteBox::filling(m_rect, drawnRadius(), drawStyle(), viewScale);
}

QByteArray RoundedRectNodeImpl::silhouetteKey() const
{
    return SilhouetteKey().add(m_rect, drawnRadius(), drawStyle()).bytes();
}

} // namespace Tova2
