#include "nodes/paintcontext.h"
#include "nodes/pen.h"
#include "nodes/stripfill.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

/// As many points the toolkit fills at once; its time grows with their square.
constexpr std::size_t kAtOnce = 128;
/// Roughly of what is filled at once, strip by strip.
constexpr double kCornersOfStrip = 32;
constexpr double kNarrowest = 2, kWidest = 64; // pixels
constexpr double kUnseen = 0.05;               // pixels

/// Whole pixels; the more points, the narrower.
double stripWidth(double seenPixels, std::size_t pointCount)
{
    const double wanted = seenPixels * kCornersOfStrip / static_cast<double>(pointCount);
    return std::round(std::clamp(wanted, kNarrowest, kWidest));
}

double scaleOf(const QTransform& transform)
{
    return std::sqrt(std::abs(transform.determinant()));
}

} // namespace

/// A stretched line that is no pixel wide: the toolkit would have it fade away, and take long.
bool PaintContext::isHairline() const
{
    return m_fillsStrokes && !m_isMovedOnly && m_stroke.style() == StrokeStyle::SolidLine &&
           m_penWidth <= 1 && !isUniform(nodeToDevice());
}

bool PaintContext::isLong(std::size_t pointCount) const
{
    return pointCount > kAtOnce && m_fillsStrokes;
}

/// Dashes are the toolkit's, and lines of at most a pixel it draws fast, however many they are.
bool PaintContext::strokesAsArea() const
{
    return m_stroke.style() == StrokeStyle::SolidLine && m_stroke.logicalWidth() > 0 &&
           m_penWidth > 1;
}

void PaintContext::drawHairlines(const Polylines& lines)
{
    const QTransform toDevice = nodeToDevice();
    useState();
    m_painter.setWorldTransform(QTransform());
    m_coordinates = Coordinates::Unknown;
    m_painter.setPen(QPen(Vetra::toQt(m_stroke.color()), 0));
    m_isFrameSet = m_arePenAndBrushSet = false;
    for (std::size_t i = 0; i < lines.lineCount(); ++i) {
        m_movedPoints.clear();
        for (const QPointF& p : lines.line(i))
            m_movedPoints.push_back(toDevice.map(p));
        m_painter.drawPolyline(m_movedPoints.data(), static_cast<int>(m_movedPoints.size()));
    }
}

/// In the device's coordinates, by whole pixels.
QRectF PaintContext::seenOnDevice() const
{
    QRectF seen(0, 0, m_painter.device()->width(), m_painter.device()->height());
    if (m_painter.hasClipping())
        seen = m_painter.clipBoundingRect();
    const QRectF exposed = Vetra::toQt(m_options.exposed);
    if (!exposed.isEmpty())
        seen &= m_view.mapRect(exposed);
    const QPointF first(std::floor(seen.left() * m_pixelRatio) - 1,
                        std::floor(seen.top() * m_pixelRatio) - 1);
    const QPointF last(std::ceil(seen.right() * m_pixelRatio) + 1,
                       std::ceil(seen.bottom() * m_pixelRatio) + 1);
    return {first / m_pixelRatio, last / m_pixelRatio};
}

/// In the device's coordinates.
StripFill PaintContext::stripsFor(std::size_t pointCount) const
{
    const QRectF seen = seenOnDevice();
    return {seen, stripWidth(seen.width() * m_pixelRatio, pointCount) / m_pixelRatio};
}

void PaintContext::fillInStrips(const Polylines& lines, bool areClosed)
{
    const double width = drawnWidth(m_stroke, m_options.viewScale);
    const double unit = kUnseen / scaleOf(nodeToPixels());
    const QTransform toDevice = nodeToDevice();
    useState();
    m_painter.setWorldTransform(QTransform());
    m_coordinates = Coordinates::Unknown;
    StripFill area = stripsFor(lines.pointCount());
    for (std::size_t i = 0; i < lines.lineCount(); ++i) {
        if (!m_strokePolygon.buildAny(lines.line(i), areClosed, width, m_stroke, unit))
            continue;
        m_movedPoints.clear();
        for (const QPointF& p : m_strokePolygon.points())
            m_movedPoints.push_back(toDevice.map(p));
        area.addRing(m_movedPoints);
    }
    useStrokeBrush();
    area.paint(m_painter, Qt::WindingFill);
}

/// False where the fill follows the shape's box, which strips do not know.
bool PaintContext::drawLongPolygon(std::span<const QPointF> points)
{
    QBrush brush = brushOf(m_fill);
    if (brush.gradient() && brush.gradient()->coordinateMode() != QGradient::LogicalMode)
        return false;
    const QTransform toDevice = nodeToDevice();
    useState();
    m_painter.setWorldTransform(QTransform());
    m_coordinates = Coordinates::Unknown;
    if (brush.style() != Qt::NoBrush) {
        brush.setTransform(brush.transform() * toDevice);
        StripFill area = stripsFor(points.size());
        m_movedPoints.clear();
        for (const QPointF& p : points)
            m_movedPoints.push_back(toDevice.map(p));
        area.addRing(m_movedPoints);
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(brush);
        m_isFrameSet = m_arePenAndBrushSet = false;
        area.paint(m_painter, Qt::OddEvenFill);
    }
    if (m_stroke.isNoStroke())
        return true;
    Polylines ring;
    ring.moveTo(points.front());
    for (const QPointF& p : points.subspan(1))
        ring.lineTo(p);
    if (strokesAsArea()) {
        fillInStrips(ring, true);
        return true;
    }
    ring.lineTo(points.front());
    drawPolylines(ring);
    return true;
}

} // namespace Tova2
