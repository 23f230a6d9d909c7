#include "tova/nodes/customnodepainter.h"

#include "nodes/customnodeimpl.h"

#include <QPainter>
#include <QPainterPath>

namespace Tova2 {

CustomNodePainter::~CustomNodePainter() = default;

Vetra::GLRect<double> CustomNodePainter::getOutlineRect(double scale) const
{
    return getBoundingRect(scale);
}

Bounds CustomNodePainter::getOutlineStroked(double scale) const
{
    return Bounds(getBoundingRect(scale));
}

void CustomNodePainter::paintMask(QPainter* painter, double scale, const Vetra::GLRect<double>&,
                                  const PaintOptions&)
{
    painter->fillPath(getOutlineStroked(scale).asQPainterPath(), Qt::black);
}

CustomNode CustomNodePainter::getNode() const
{
    // A node on its way out must not be held again.
    const bool isAlive = m_node && m_node->referenceCount() > 0;
    return CustomNode(isAlive ? m_node : nullptr);
}

void CustomNodePainter::boundsChanging()
{
    if (m_node)
        m_node->boundsChanging();
}

} // namespace Tova2
