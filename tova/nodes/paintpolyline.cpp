#include "nodes/paintcontext.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QPainter>

#include <algorithm>

namespace Tova2 {

void PaintContext::drawPolyline(std::span<const QPointF> points)
{
    drawPoints(points, false);
}

void PaintContext::drawPolygon(std::span<const QPointF> points)
{
    drawPoints(points, true);
}

void PaintContext::drawPoints(std::span<const QPointF> points, bool isClosed)
{
    const bool isShifted = drawsShifted() || (!isClosed && m_isMovedOnly);
    const QPointF shift = isShifted ? m_offset : QPointF();
    if (m_isPixelAligned || !shift.isNull()) {
        m_movedPoints.clear();
        m_movedPoints.reserve(points.size());
        for (const QPointF& p : points)
            m_movedPoints.push_back((m_isPixelAligned ? aligned(p) : p) + shift);
        points = m_movedPoints;
    }
    if (isShifted && fillStroke(points, isClosed))
        return;
    QPainter& painter = isShifted ? viewPainter() : localPainter();
    const int count = static_cast<int>(points.size());
    if (isClosed)
        painter.drawPolygon(points.data(), count);
    else
        painter.drawPolyline(points.data(), count);
}

/// In scene units; 0 where the stroke has to stay one. Lines of at most a pixel the toolkit draws
/// in a faster way of its own, with another picture.
double PaintContext::strokePolygonWidth() const
{
    if (!m_fillsStrokes || !m_isAntialiased || !StrokePolygon::canDraw(m_stroke) ||
        m_stroke.logicalWidth() == 0)
        return 0;
    const double scale = m_options.viewScale;
    const double width = std::min(m_stroke.width(scale), Limits::penWidth / scale);
    return width * scale > 1 ? width : 0;
}

bool PaintContext::fillStroke(std::span<const QPointF> points, bool isClosed)
{
    const double width = strokePolygonWidth();
    if (!(width > 0) || !m_strokePolygon.build(points, isClosed, width, m_stroke))
        return false;
    useView();
    if (isClosed && m_fill.style() != FillStyle::NoFill) {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(Vetra::toQt(m_fill.color()));
        m_painter.drawPolygon(points.data(), static_cast<int>(points.size()));
        m_isFrameSet = m_arePenAndBrushSet = false;
    }
    useStrokeBrush();
    const auto& area = m_strokePolygon.points();
    m_painter.drawPolygon(area.data(), static_cast<int>(area.size()), Qt::WindingFill);
    return true;
}

} // namespace Tova2
