#include "nodes/paintcontext.h"

#include "nodes/pen.h"

#include "vetra/qt.h"

#include <QPainter>

#include <algorithm>

namespace Tova2 {

void PaintContext::drawPolyline(std::span<const QPointF> points)
{
    if (holdLines(points))
        return;
    if (!isHairline() && !isDashed() && !(isLong(points.size()) && strokesAsArea()))
        return drawPoints(points, false);
    Polylines& lines = scratchLines();
    lines.moveTo(points.front());
    for (const QPointF& p : points.subspan(1))
        lines.lineTo(p);
    drawPolylines(lines);
}

Polylines& PaintContext::scratchLines()
{
    m_scratchLines.clear();
    return m_scratchLines;
}

void PaintContext::drawPolygon(std::span<const QPointF> points)
{
    if (isLong(points.size()) && drawLongPolygon(points))
        return;
    const auto addRing = [&](QPainterPath& path) {
        path.addPolygon(QVector<QPointF>(points.begin(), points.end()));
        path.closeSubpath();
        path = placed(path);
    };
    if (!drawAsLines(addRing))
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

void PaintContext::drawPolylines(const Polylines& lines)
{
    if (lines.lineCount() == 0)
        return;
    if (isDashed())
        return drawDashes(lines);
    if (holdAll(lines))
        return;
    if (isHairline())
        return drawHairlines(lines);
    if (isLong(lines.pointCount()) && strokesAsArea())
        return fillInStrips(lines, false);
    // How many dashes there are depends on what is exposed, how each is drawn must not.
    if (lines.lineCount() == 1 && !m_isCut)
        return drawPoints(lines.line(0), false);
    const QPointF shift = m_isMovedOnly ? m_offset : QPointF();
    const bool isMoved = m_isPixelAligned || !shift.isNull();
    if (isMoved) {
        m_movedLines = lines;
        for (QPointF& p : m_movedLines.points())
            p = (m_isPixelAligned ? aligned(p) : p) + shift;
    }
    const Polylines& drawn = isMoved ? m_movedLines : lines;
    if (m_isMovedOnly && fillStrokes(drawn))
        return;
    strokePath(drawn, m_isMovedOnly ? viewPainter() : localPainter());
}

// Lines of at most a pixel the toolkit draws one by one at its fastest; they do not overlap.
void PaintContext::strokePath(const Polylines& lines, QPainter& painter)
{
    if (m_penWidth > 1)
        return painter.drawPath(lines.path());
    for (std::size_t i = 0; i < lines.lineCount(); ++i)
        painter.drawPolyline(lines.line(i).data(), static_cast<int>(lines.line(i).size()));
}

/// In scene units; 0 where the stroke has to stay one. Lines of at most a pixel the toolkit draws
/// in a faster way of its own, with another picture.
double PaintContext::strokePolygonWidth() const
{
    if (!m_fillsStrokes || !m_isAntialiased || !StrokePolygon::canDraw(m_stroke) ||
        m_stroke.logicalWidth() == 0)
        return 0;
    const double scale = m_options.viewScale;
    const double width = drawnWidth(m_stroke, scale);
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
    fillArea(m_strokePolygon.points());
    return true;
}

bool PaintContext::fillStrokes(const Polylines& lines)
{
    const double width = strokePolygonWidth();
    if (!(width > 0) || !m_strokePolygon.buildAll(lines, width, m_stroke))
        return false;
    fillArea(m_strokePolygon.points());
    return true;
}

StrokeArea::Key PaintContext::strokeAreaKey() const
{
    if (!m_isMovedOnly || m_isPixelAligned)
        return {};
    return {strokePolygonWidth(), m_options.viewScale * m_pixelRatio, m_stroke.capStyle(),
            m_stroke.joinStyle()};
}

void PaintContext::layOut(StrokeArea& area, const Polylines& lines)
{
    area.points.clear();
    if (m_strokePolygon.buildAll(lines, area.key.width, m_stroke))
        area.points.assign(m_strokePolygon.points().begin(), m_strokePolygon.points().end());
}

void PaintContext::drawArea(const StrokeArea& area)
{
    if (m_offset.isNull())
        return fillArea(area.points);
    m_movedPoints.clear();
    m_movedPoints.reserve(area.points.size());
    for (const QPointF& p : area.points)
        m_movedPoints.push_back(p + m_offset);
    fillArea(m_movedPoints);
}

void PaintContext::fillArea(std::span<const QPointF> area)
{
    useView();
    useStrokeBrush();
    m_painter.drawPolygon(area.data(), static_cast<int>(area.size()), Qt::WindingFill);
}

} // namespace Tova2
