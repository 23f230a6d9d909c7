#include "nodes/paintcontext.h"

#include "vetra/qt.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace Tova2 {

void PaintContext::drawRect(const QRectF& rect)
{
    const QRectF drawn = aligned(rect);
    if (holdRect(drawn))
        return;
    const bool isPlain = m_isMovedOnly && !isDashed();
    if (!isPlain && drawAsLines([&](QPainterPath& path) { path.addRect(drawn); }))
        return;
    // Not as a rectangle where it is turned: the toolkit would cut it off at the edges of the
    // device.
    if (!m_isMovedOnly)
        localPainter().drawPolygon(QPolygonF(drawn));
    else if (!drawsShifted())
        localPainter().drawRect(drawn);
    else if (canFillFrame())
        fillFrame(drawn.translated(m_offset));
    else
        viewPainter().drawRect(drawn.translated(m_offset));
}

bool PaintContext::canFillFrame() const
{
    return m_fillsStrokes && m_isAntialiased && (m_stroke.logicalWidth() > 0 || m_isUniformView) &&
           m_stroke.style() == StrokeStyle::SolidLine &&
           (m_stroke.joinStyle() == StrokeJoinStyle::MiterJoin ||
            m_stroke.joinStyle() == StrokeJoinStyle::SvgMiterJoin);
}

void PaintContext::useStrokeBrush()
{
    if (m_isFrameSet)
        return;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(Vetra::toQt(m_stroke.color()));
    m_isFrameSet = true;
    m_arePenAndBrushSet = false;
}

// A cosmetic line is a pixel of the device's own wide, which is less than a unit on a dense screen.
double PaintContext::frameWidth() const
{
    return m_penWidth / pixelsAUnit();
}

void PaintContext::fillFrame(const QRectF& rect)
{
    useView();
    const double half = frameWidth() / 2;
    const QRectF out = rect.adjusted(-half, -half, half, half);
    const QRectF in = rect.adjusted(half, half, -half, -half);
    if (m_fill.style() == FillStyle::Solid)
        m_painter.fillRect(rect, Vetra::toQt(m_fill.color()));
    useStrokeBrush();
    if (!(in.width() > 0 && in.height() > 0)) {
        m_painter.drawRect(out);
        return;
    }
    // Around the outside, across, around the inside the other way, and back: the way across covers
    // nothing.
    const QPointF ring[] = {out.topLeft(), out.topRight(), out.bottomRight(), out.bottomLeft(),
                            out.topLeft(), in.topLeft(),   in.bottomLeft(),   in.bottomRight(),
                            in.topRight(), in.topLeft()};
    m_painter.drawPolygon(ring, 10, Qt::WindingFill);
}

void PaintContext::drawRoundedRect(const QRectF& rect, double radius)
{
    if (radius * pixelsAUnit() < m_simplification->corners)
        return drawRect(rect);
    const QRectF drawn = aligned(rect);
    if (drawAsLines([&](QPainterPath& path) { path.addRoundedRect(drawn, radius, radius); }))
        return;
    if (drawsShifted()) {
        QPainter& painter = viewPainter();
        painter.drawRoundedRect(drawn.translated(m_offset), radius, radius);
    } else {
        localPainter().drawRoundedRect(drawn, radius, radius);
    }
}

void PaintContext::drawEllipse(const QRectF& rect)
{
    const QRectF drawn = aligned(rect);
    if (drawAsLines([&](QPainterPath& path) { path.addEllipse(drawn); }))
        return;
    if (drawsShifted()) {
        QPainter& painter = viewPainter();
        painter.drawEllipse(drawn.translated(m_offset));
    } else {
        localPainter().drawEllipse(drawn);
    }
}

void PaintContext::drawLine(const QLineF& line)
{
    if (line.p1() == line.p2()) // a dot, by its caps
        return localPainter().drawLine(line);
    const QPointF ends[] = {line.p1(), line.p2()};
    drawPolyline(ends);
}

void PaintContext::drawPath(const QPainterPath& path, double lengthBefore)
{
    if ((isDashed() || holdsLines()) && drawAsLines(placed(path), lengthBefore))
        return;
    if (!m_isPixelAligned && drawsShifted() && m_offset.isNull()) {
        // Connectors mostly: their points are the scene's.
        QPainter& painter = viewPainter();
        painter.drawPath(path);
        return;
    }
    localPainter().drawPath(placed(path));
}

// Only moved: to align each point of a free shape would bend it.
QPainterPath PaintContext::placed(const QPainterPath& path) const
{
    if (!m_isPixelAligned)
        return path;
    const QPointF corner = path.controlPointRect().topLeft();
    return path.translated(aligned(corner) - corner);
}

} // namespace Tova2
