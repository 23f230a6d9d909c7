#include "nodes/paintcontext.h"

#include "nodes/effects/silhouettestyle.h"
#include "nodes/pen.h"
#include "nodes/values.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QPainter>
#include <QPen>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

/// Of a view in points on paper, the dots in each; a canvas's view has no part in the window of a
/// painter.
double pixelsAUnitOf(const QPainter& painter)
{
    const double ratio = painter.device()->devicePixelRatioF();
    return painter.viewTransformEnabled()
               ? ratio * painter.viewport().width() / painter.window().width()
               : ratio;
}

} // namespace

PaintContext::PaintContext(QPainter& painter, const QTransform& view, const PaintOptions& options)
    : m_painter(painter)
    , m_view(view)
    , m_options(options)
    , m_simplification(&Simplification::of(options.quality))
    , m_pixelRatio(pixelsAUnitOf(painter))
    , m_hairline(painter.viewTransformEnabled() ? m_pixelRatio : 1)
    , m_viewToPixels(view * QTransform::fromScale(m_pixelRatio, m_pixelRatio))
    , m_isViewOnPixels(m_pixelRatio == 1 && view.type() <= QTransform::TxTranslate &&
                       view.dx() == std::round(view.dx()) && view.dy() == std::round(view.dy()) &&
                       std::max(std::abs(view.dx()), std::abs(view.dy())) < 1e6)
    , m_isUpright(view.m12() == 0 && view.m21() == 0)
    , m_isUniformView(m_isUpright && std::abs(view.m11()) == std::abs(view.m22()))
{
    m_held.setArea(m_viewToPixels.mapRect(Vetra::toQt(options.exposed)).toAlignedRect());
}

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
    if (opacity == m_opacity)
        return;
    m_opacity = opacity;
    m_isOpacitySet = false;
}

void PaintContext::setSilhouette(double cosmeticWidth, const Vetra::Color& color)
{
    m_isSilhouette = true;
    m_silhouetteColor = color;
    m_cosmeticWidth = cosmeticWidth;
    m_simplification = &Simplification::none();
}

void PaintContext::setQuality(std::uint8_t quality)
{
    if (quality == m_options.quality)
        return;
    m_options.quality = quality;
    m_simplification = m_isSilhouette ? &Simplification::none() : &Simplification::of(quality);
}

QColor PaintContext::ink(const QColor& color) const
{
    return m_isSilhouette && color.alpha() > 0 ? Vetra::toQt(m_silhouetteColor) : color;
}

double PaintContext::pixelsOf(const Stroke& stroke) const
{
    return stroke.logicalWidth() == 0 ? m_hairline
                                      : drawnWidth(stroke, m_options.viewScale) * pixelsAUnit();
}

/// As wide as whole pixels: a line between is blurred wherever it lies.
Stroke PaintContext::aligned(const Stroke& stroke) const
{
    const QTransform toPixels = nodeToPixels();
    if (toPixels.type() > QTransform::TxScale ||
        std::abs(toPixels.m11()) != std::abs(toPixels.m22()))
        return stroke;
    const double pixels = pixelsOf(stroke), whole = std::max(std::round(pixels), 1.0);
    Stroke result = stroke;
    if (stroke.logicalWidth() > 0 && pixels > 0 && pixels <= Limits::penWidth)
        result.setLogicalWidth(stroke.logicalWidth() * whole / pixels);
    return result;
}

void PaintContext::setStyle(const DrawStyle& style, double extent)
{
    if (m_isSilhouette)
        applyStyle(silhouetteStyle(style, m_silhouetteColor, m_cosmeticWidth), extent);
    else
        applyStyle(style, extent);
}

void PaintContext::applyStyle(const DrawStyle& style, double extent)
{
    const bool isDashed = style.stroke().style() > StrokeStyle::SolidLine;
    const bool hasGradient = style.fill().style() == FillStyle::Gradient;
    const bool isPlain = m_simplification->isNone() || !(isDashed || hasGradient);
    if (isPlain && style.isPixelAligned()) {
        useStyle(aligned(style.stroke()), style.fill());
    } else if (isPlain) {
        useStyle(style.stroke(), style.fill());
    } else {
        const Stroke stroke = m_simplification->stroke(style.stroke(), pixelsOf(style.stroke()));
        useStyle(style.isPixelAligned() ? aligned(stroke) : stroke,
                 m_simplification->fill(style.fill(), extent * pixelsAUnit()));
    }
    setAntialiased(style.isAntiAliased());
    m_isPixelAligned = style.isPixelAligned();
}

void PaintContext::useStyle(const Stroke& stroke, const Fill& fill)
{
    if (!m_isStyleKnown || stroke != m_stroke) {
        m_stroke = stroke;
        m_arePenAndBrushSet = m_isFrameSet = false;
    }
    m_penWidth = pixelsOf(stroke);
    if (!m_isStyleKnown || fill != m_fill) {
        m_fill = fill;
        m_arePenAndBrushSet = false;
    }
    m_isStyleKnown = true;
}

void PaintContext::setPenAndBrush()
{
    if (m_arePenAndBrushSet)
        return;
    QPen pen = penOf(m_stroke, m_options.viewScale);
    if (m_stroke.logicalWidth() == 0 && m_hairline != 1) {
        pen.setWidthF(m_hairline);
        pen.setCosmetic(true);
    }
    m_painter.setPen(pen);
    m_painter.setBrush(brushOf(m_fill));
    m_arePenAndBrushSet = true;
    m_isFrameSet = false;
}

void PaintContext::setAntialiased(bool on)
{
    m_areHintsSet = m_areHintsSet && on == m_isAntialiased;
    m_isAntialiased = on;
}

void PaintContext::forgetPainterState()
{
    m_coordinates = Coordinates::Unknown;
    m_isOpacitySet = m_areHintsSet = m_arePenAndBrushSet = m_isFrameSet = false;
}

/// All but the pen, the brush and the coordinates.
void PaintContext::useState()
{
    flush();
    if (!m_isOpacitySet)
        m_painter.setOpacity(m_opacity);
    if (!m_areHintsSet) {
        m_painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
        m_painter.setRenderHint(QPainter::Antialiasing, m_isAntialiased);
    }
    m_isOpacitySet = m_areHintsSet = true;
}

// Where pictures are not drawn pixel by pixel, the toolkit draws them as opaque as the brush.
void PaintContext::useOpaqueBrush()
{
    m_painter.setPen(QPen());
    m_painter.setBrush(Qt::black);
    m_arePenAndBrushSet = m_isFrameSet = false;
}

QTransform PaintContext::nodeToDevice() const
{
    return m_isMovedOnly ? QTransform::fromTranslate(m_offset.x(), m_offset.y()) * m_view
                         : m_nodeToDevice;
}

QTransform PaintContext::nodeToPixels() const
{
    return m_isMovedOnly ? QTransform::fromTranslate(m_offset.x(), m_offset.y()) * m_viewToPixels
                         : m_nodeToDevice * QTransform::fromScale(m_pixelRatio, m_pixelRatio);
}

double PaintContext::pixelsAUnit() const
{
    const double inView =
        m_isMovedOnly ? m_options.viewScale : std::sqrt(std::abs(m_nodeToDevice.determinant()));
    return inView * m_pixelRatio;
}

void PaintContext::useNode()
{
    useState();
    if (m_coordinates != Coordinates::Node) {
        m_painter.setWorldTransform(nodeToDevice());
        m_coordinates = Coordinates::Node;
    }
}

QPainter& PaintContext::localPainter()
{
    useNode();
    if (m_isStyleKnown)
        setPenAndBrush();
    return m_painter;
}

QPainter& PaintContext::picturePainter(bool isAntialiased)
{
    setAntialiased(isAntialiased);
    useNode();
    useOpaqueBrush();
    return m_painter;
}

// Transforms undo the ratio instead of pictures having it: then pixels are copied on any screen.
QPainter& PaintContext::pixelPainter()
{
    useState();
    if (!m_fillsStrokes)
        useOpaqueBrush();
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
    useState();
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
    const QPointF snapped(nearestPixel(device.x() - phase) + phase,
                          nearestPixel(device.y() - phase) + phase);
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
    m_isOpacitySet = m_opacity == 1;
}

void PaintContext::drawPixels(const QPoint& corner, const QImage& image)
{
    if (!m_isViewOnPixels) {
        pixelPainter().drawImage(corner, image);
        return;
    }
    useView();
    m_painter.drawImage(corner - QPoint(qRound(m_view.dx()), qRound(m_view.dy())), image);
}

} // namespace Tova2
