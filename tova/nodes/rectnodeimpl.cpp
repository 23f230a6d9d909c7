#include "nodes/rectnodeimpl.h"

#include "nodes/paintcontext.h"
#include "nodes/values.h"

#include <QLineF>

namespace Tova2 {

void RectNodeImpl::setRect(const QRectF& rect)
{
    if (!isFinite(rect) || isSame(rect, m_rect))
        return;
    geometryChanging();
    m_rect = rect;
    reportChange(ChangeLevel::Geometry);
}

void RectNodeImpl::paintNode(PaintContext& context) const
{
    if (!isDrawable(m_rect))
        return;
    context.setStyle(drawStyle());
    // A path there and back would have mitres at its ends.
    if (m_rect.isEmpty())
        context.drawLine({m_rect.topLeft(), m_rect.bottomRight()});
    else
        context.drawRect(m_rect);
}

} // namespace Tova2
