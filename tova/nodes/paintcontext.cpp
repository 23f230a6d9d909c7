#include "nodes/paintcontext.h"

#include "nodes/effects/pixeleffectpainter.h"
#include "nodes/effects/silhouettestyle.h"
#include "nodes/pen.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QLineF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace Tova2 {

PaintContext::PaintContext(QPainter& painter, const QTransform& view, const PaintOptions& options)
    : m_painter(painter)
    , m_effectPainter(&PixelEffectPainter::instance())
    , m_view(view)
    , m_options(options)
    , m_pixelRatio(painter.device()->devicePixelRatioF())
    , m_isUniformView(view.m12() == 0 && view.m21() == 0 &&
                      std::abs(view.m11()) == std::abs(view.m22()))
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

void PaintContext::enterLike(const PaintContext& other)
{
    if (other.m_isMovedOnly)
        enter(other.m_offset);
    else
        enter(other.m_nodeToDevice * other.m_view.inverted() * m_view);
}

void PaintContext::setOpacity(double opacity)
{
    if (m_isOpacitySet && opacity == m_opacity)
        return;
    m_opacity = opacity;
    m_isOpacitySet = true;
    m_painter.setOpacity(opacity);
}

void PaintContext::setSilhouette(double cosmeticWidth)
{
    m_isSilhouette = true;
    m_cosmeticWidth = cosmeticWidth;
}

QColor PaintContext::ink(const QColor& color) const
{
    return m_isSilhouette && color.alpha() > 0 ? QColor(Qt::black) : color;
}

void PaintContext::setStyle(const DrawStyle& style)
{
    if (m_isSilhouette)
        applyStyle(silhouetteStyle(style, m_cosmeticWidth));
    else
        applyStyle(style);
}

void PaintContext::applyStyle(const DrawStyle& style)
{
    setAntialiased(style.isAntiAliased());
    if (!m_isStyleKnown || style.stroke() != m_stroke) {
        m_stroke = style.stroke();
        m_arePenAndBrushSet = m_isFrameSet = false;
        m_penWidth = m_stroke.logicalWidth() == 0
                         ? 1.0
                         : m_stroke.width(m_options.viewScale) * m_options.viewScale * m_pixelRatio;
    }
    if (!m_isStyleKnown || style.fill() != m_fill) {
        m_fill = style.fill();
        m_arePenAndBrushSet = false;
    }
    m_isStyleKnown = true;
    m_isPixelAligned = style.isPixelAligned();
}

void PaintContext::setPenAndBrush()
{
    if (m_arePenAndBrushSet)
        return;
    m_painter.setPen(penOf(m_stroke, m_options.viewScale));
    m_painter.setBrush(brushOf(m_fill));
    m_arePenAndBrushSet = true;
    m_isFrameSet = false;
}

void PaintContext::setAntialiased(bool on)
{
    if (m_isAntialiasedSet && on == m_isAntialiased)
        return;
    m_painter.setRenderHint(QPainter::Antialiasing, on);
    m_isAntialiased = on;
    m_isAntialiasedSet = true;
}

void PaintContext::forgetPainterState()
{
    m_coordinates = Coordinates::Unknown;
    m_isOpacitySet = m_isAntialiasedSet = m_arePenAndBrushSet = m_isFrameSet = false;
}

QTransform PaintContext::nodeToDevice() const
{
    return m_isMovedOnly ? QTransform::fromTranslate(m_offset.x(), m_offset.y()) * m_view
                         : m_nodeToDevice;
}

QTransform PaintContext::nodeToPixels() const
{
    return nodeToDevice() * QTransform::fromScale(m_pixelRatio, m_pixelRatio);
}

QPainter& PaintContext::localPainter()
{
    if (m_coordinates != Coordinates::Node) {
        m_painter.setWorldTransform(nodeToDevice());
        m_coordinates = Coordinates::Node;
    }
    if (m_isStyleKnown)
        setPenAndBrush();
    return m_painter;
}

// Transforms undo the ratio instead of pictures having it: then pixels are copied on any screen.
QPainter& PaintContext::pixelPainter()
{
    if (m_coordinates != Coordinates::Pixels) {
        m_painter.setWorldTransform(QTransform::fromScale(1 / m_pixelRatio, 1 / m_pixelRatio));
        m_coordinates = Coordinates::Pixels;
    }
    return m_painter;
}

QRectF PaintContext::exposedPixels() const
{
    const auto* const device = m_painter.device();
    const QRectF all(0, 0, device->width() * m_pixelRatio, device->height() * m_pixelRatio);
    const QRectF exposed = Vetra::toQt(m_options.exposed);
    if (exposed.isEmpty())
        return all;
    const QRectF inUnits = m_view.mapRect(exposed);
    const QRectF pixels(inUnits.topLeft() * m_pixelRatio, inUnits.size() * m_pixelRatio);
    return m_fillsStrokes ? pixels & all : pixels;
}

void PaintContext::useView()
{
    if (m_coordinates == Coordinates::View)
        return;
    m_painter.setWorldTransform(m_view);
    m_coordinates = Coordinates::View;
}

QPainter& PaintContext::viewPainter()
{
    useView();
    setPenAndBrush();
    return m_painter;
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
    const QTransform toDevice = nodeToPixels();
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
    QPainter& painter = pixelPainter();
    painter.setOpacity(1);
    painter.drawImage(corner, image);
    painter.setOpacity(m_opacity);
}

void PaintContext::drawRect(const QRectF& rect)
{
    const QRectF drawn = aligned(rect);
    if (!drawsShifted())
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
    const double width = m_stroke.width(m_options.viewScale);
    return m_stroke.logicalWidth() > 0 ? std::min(width, Limits::penWidth / m_options.viewScale)
                                       : width / m_pixelRatio;
}

void PaintContext::fillFrame(const QRectF& rect)
{
    useView();
    if (m_fill.style() == FillStyle::Solid)
        m_painter.fillRect(rect, Vetra::toQt(m_fill.color()));
    useStrokeBrush();
    const double half = frameWidth() / 2;
    const QRectF out = rect.adjusted(-half, -half, half, half);
    const QRectF in = rect.adjusted(half, half, -half, -half);
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
    const QRectF drawn = aligned(rect);
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
    if (drawsShifted()) {
        QPainter& painter = viewPainter();
        painter.drawEllipse(drawn.translated(m_offset));
    } else {
        localPainter().drawEllipse(drawn);
    }
}

void PaintContext::drawLine(const QLineF& line)
{
    const QLineF drawn = m_isPixelAligned ? QLineF(aligned(line.p1()), aligned(line.p2())) : line;
    if (drawsShifted()) {
        QPainter& painter = viewPainter();
        painter.drawLine(drawn.translated(m_offset));
    } else {
        localPainter().drawLine(drawn);
    }
}

void PaintContext::drawPath(const QPainterPath& path)
{
    if (!m_isPixelAligned && drawsShifted() && m_offset.isNull()) {
        // Connectors mostly: their points are the scene's.
        QPainter& painter = viewPainter();
        painter.drawPath(path);
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
