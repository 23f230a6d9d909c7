#include "nodes/rectnodeimpl.h"

#include "nodes/effects/silhouettekey.h"
#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include <QLineF>

#include <algorithm>

namespace Tova2 {

void RectNodeImpl::setRect(const QRectF& rect)
{
    if (!isFinite(rect) || isSame(rect, m_rect))
        return;
    m_rect = rect;
    reportChange(ChangeLevel::Geometry);
}

Bounds RectNodeImpl::outline() const
{
    return hasOutline() ? NodeImpl::outline() : Bounds();
}

void RectNodeImpl::paintNode(PaintContext& context) const
{
    if (!hasOutline())
        return;
    if (context.drawTiny(m_rect, drawStyle(), 1))
        return;
    context.setStyle(drawStyle(), std::max(m_rect.width(), m_rect.height()));
    // A path there and back would have mitres at its ends.
    if (m_rect.isEmpty())
        context.drawLine({m_rect.topLeft(), m_rect.bottomRight()});
    else
        context.drawRect(m_rect);
}

QPainterPath RectNodeImpl::silhouetteOutline(double viewScale) const
{
    return SilhouetteBox::around(m_rect, 0, drawStyle(), viewScale).path();
}

std::optional<SilhouetteBox> RectNodeImpl::silhouetteBox(double viewScale) const
{
    return SilhouetteBox::filling(m_rect, 0, drawStyle(), viewScale);
}

QByteArray RectNodeImpl::silhouetteKey() const
{
    return SilhouetteKey().add(m_rect, drawStyle()).bytes();
}

} // namespace Tova2
