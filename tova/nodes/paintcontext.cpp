#include "nodes/paintcontext.h"

#include "nodes/pen.h"

#include "vetra/qt.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace Tova2 {

PaintContext::PaintContext(QPainter& painter, const QTransform& view, const PaintOptions& options)
    : m_painter(painter), m_view(view), m_options(options)
{}

void PaintContext::enter(const QPointF& sceneOffset)
{
    m_offset = sceneOffset;
    m_isMovedOnly = true;
    if (m_coordinates == Coordinates::Node)
        m_coordinates = Coordinates::Unknown;
}

void PaintContext::enter(const QTransform& nodeToDevice)
{
    m_nodeToDevice = nodeToDevice;
    m_isMovedOnly = false;
    if (m_coordinates == Coordinates::Node)
        m_coordinates = Coordinates::Unknown;
}

void PaintContext::setOpacity(double opacity)
{
    if (opacity == m_opacity)
        return;
    m_opacity = opacity;
    m_painter.setOpacity(opacity);
}

void PaintContext::setStyle(const DrawStyle& style)
{
    setAntialiased(style.isAntiAliased());
    setStroke(style.stroke());
    setFill(style.fill());
    m_isPixelAligned = style.isPixelAligned();
}

void PaintContext::setAntialiased(bool on)
{
    if (m_isAntialiasedSet && on == m_isAntialiased)
        return;
    m_painter.setRenderHint(QPainter::Antialiasing, on);
    m_isAntialiased = on;
    m_isAntialiasedSet = true;
}

void PaintContext::setStroke(const Stroke& stroke)
{
    if (m_isStrokeSet && stroke == m_stroke)
        return;
    const QPen pen = penOf(stroke, m_options.viewScale);
    m_painter.setPen(pen);
    m_penWidth = pen.isCosmetic() ? 1.0 : pen.widthF() * m_options.viewScale;
    m_stroke = stroke;
    m_isStrokeSet = true;
}

void PaintContext::setFill(const Fill& fill)
{
    if (m_isFillSet && fill == m_fill)
        return;
    m_painter.setBrush(brushOf(fill));
    m_fill = fill;
    m_isFillSet = true;
}

void PaintContext::forgetPainterState()
{
    m_coordinates = Coordinates::Unknown;
    m_opacity = -1;
    m_isStrokeSet = m_isFillSet = m_isAntialiasedSet = false;
}

QTransform PaintContext::nodeToDevice() const
{
    return m_isMovedOnly ? QTransform::fromTranslate(m_offset.x(), m_offset.y()) * m_view
                         : m_nodeToDevice;
}

QPainter& PaintContext::localPainter()
{
    if (m_coordinates != Coordinates::Node) {
        m_painter.setWorldTransform(nodeToDevice());
        m_coordinates = Coordinates::Node;
    }
    return m_painter;
}

void PaintContext::useView()
{
    if (m_coordinates == Coordinates::View)
        return;
    m_painter.setWorldTransform(m_view);
    m_coordinates = Coordinates::View;
}

// A gradient's geometry is the node's, so it cannot be moved without the painter.
bool PaintContext::drawsShifted() const
{
    return m_isMovedOnly && m_fill.style() != FillStyle::Gradient;
}

// A line of odd width is crisp when its centre lies in the middle of a pixel, one of even width
// between two.
QPointF PaintContext::aligned(const QPointF& point) const
{
    const QTransform toDevice = nodeToDevice();
    if (toDevice.type() > QTransform::TxScale || toDevice.m11() == 0 || toDevice.m22() == 0)
        return point;
    const bool isOdd = !m_stroke.isNoStroke() && std::llround(std::max(m_penWidth, 1.0)) % 2 == 1;
    const double phase = isOdd ? 0.5 : 0.0;
    const QPointF device = toDevice.map(point);
    const QPointF snapped(std::round(device.x() - phase) + phase,
                          std::round(device.y() - phase) + phase);
    return {(snapped.x() - toDevice.dx()) / toDevice.m11(),
            (snapped.y() - toDevice.dy()) / toDevice.m22()};
}

QRectF PaintContext::aligned(const QRectF& rect) const
{
    return m_isPixelAligned ? QRectF(aligned(rect.topLeft()), aligned(rect.bottomRight())) : rect;
}

void PaintContext::drawDeviceImage(const QPoint& corner, const QImage& image)
{
    m_painter.setWorldTransform(QTransform());
    m_painter.drawImage(corner, image);
    m_coordinates = Coordinates::Unknown;
}

void PaintContext::drawRect(const QRectF& rect)
{
    const QRectF drawn = aligned(rect);
    if (drawsShifted()) {
        useView();
        m_painter.drawRect(drawn.translated(m_offset));
    } else {
        localPainter().drawRect(drawn);
    }
}

void PaintContext::drawRoundedRect(const QRectF& rect, double radius)
{
    const QRectF drawn = aligned(rect);
    if (drawsShifted()) {
        useView();
        m_painter.drawRoundedRect(drawn.translated(m_offset), radius, radius);
    } else {
        localPainter().drawRoundedRect(drawn, radius, radius);
    }
}

void PaintContext::drawEllipse(const QRectF& rect)
{
    const QRectF drawn = aligned(rect);
    if (drawsShifted()) {
        useView();
        m_painter.drawEllipse(drawn.translated(m_offset));
    } else {
        localPainter().drawEllipse(drawn);
    }
}

void PaintContext::drawLine(const QLineF& line)
{
    const QLineF drawn = m_isPixelAligned ? QLineF(aligned(line.p1()), aligned(line.p2())) : line;
    if (drawsShifted()) {
        useView();
        m_painter.drawLine(drawn.translated(m_offset));
    } else {
        localPainter().drawLine(drawn);
    }
}

void PaintContext::drawPath(const QPainterPath& path)
{
    if (!m_isPixelAligned && drawsShifted() && m_offset.isNull()) {
        // Connectors mostly: their points are the scene's.
        useView();
        m_painter.drawPath(path);
        return;
    }
    QPainter& painter = localPainter();
    if (!m_isPixelAligned) {
        painter.drawPath(path);
        return;
    }
    // Only moved: to align each point of a free shape would bend it.
    const QPointF corner = path.controlPointRect().topLeft();
    painter.translate(aligned(corner) - corner);
    painter.drawPath(path);
    m_coordinates = Coordinates::Unknown;
}

} // namespace Tova2
