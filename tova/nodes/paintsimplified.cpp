#include "nodes/cubic.h"
#include "nodes/paintcontext.h"

#include "nodes/pen.h"
#include "nodes/values.h"

#include "vetra/qt.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

double areaOf(const QRectF& rect)
{
    return std::max(rect.width(), 0.0) * std::max(rect.height(), 0.0);
}

} // namespace

/// Boxes stay boxes, and thin lines may be measured as they lie in the scene.
bool PaintContext::canHold() const
{
    return !m_simplification->isNone() && m_isMovedOnly && m_isUpright;
}

QRgb PaintContext::heldColor(const Vetra::Color& color) const
{
    QRgb packed = color.packed();
    if (m_opacity < 1)
        packed = qRgba(color.red(), color.green(), color.blue(), qRound(color.alpha() * m_opacity));
    return qPremultiply(packed);
}

QRectF PaintContext::heldBox(const QRectF& area) const
{
    const double left = area.left() + m_offset.x(), top = area.top() + m_offset.y();
    const double x = left * m_viewToPixels.m11() + m_viewToPixels.dx();
    const double y = top * m_viewToPixels.m22() + m_viewToPixels.dy();
    return QRectF(x, y, area.width() * m_viewToPixels.m11(), area.height() * m_viewToPixels.m22())
        .normalized();
}

void PaintContext::hold(const QRectF& area, const Vetra::Color& color)
{
    if (color.alpha() == 0)
        return;
    if (m_pixels)
        return m_pixels->fill(heldBox(area), heldColor(color));
    if (m_held.isFull())
        flush();
    m_held.add(heldBox(area), heldColor(color));
}

void PaintContext::fillArea(const QRectF& area, const Vetra::Color& color)
{
    if (canHold())
        return hold(area, color);
    setAntialiased(true);
    if (m_isMovedOnly)
        useView();
    else
        useNode();
    QPainterPath path;
    path.addRect(m_isMovedOnly ? area.translated(m_offset) : area);
    m_painter.fillPath(path, Vetra::toQt(color));
}

/// In local units; 0 without a stroke.
double PaintContext::widthOf(const Stroke& stroke) const
{
    if (stroke.isNoStroke())
        return 0;
    return stroke.logicalWidth() == 0 ? m_hairline / pixelsAUnit()
                                      : drawnWidth(stroke, m_options.viewScale);
}

bool PaintContext::drawTiny(const QRectF& geometry, const DrawStyle& style, double share)
{
    if (m_simplification->isNone())
        return false;
    const double most = m_simplification->figures / pixelsAUnit();
    if (!(std::max(geometry.width(), geometry.height()) < most))
        return false;
    const double width = widthOf(style.stroke()), half = width / 2;
    const QRectF out = geometry.adjusted(-half, -half, half, half);
    if (!(std::max(out.width(), out.height()) < most))
        return false;
    const double all = areaOf(out), inside = areaOf(geometry.adjusted(half, half, -half, -half));
    const Fill fill = m_simplification->fill(style.fill(), 0);
    const auto ground =
        fill.style() == FillStyle::Solid ? fill.color() : Vetra::Color::fromPacked(0);
    const auto line = width > 0 ? m_simplification->stroke(style.stroke(), 0).color()
                                : Vetra::Color::fromPacked(0);
    fillArea(out, faded(mixed(line, ground, all > 0 ? inside / all : 0), share));
    return true;
}

/// As `fillFrame`, with the inside put over the outside: what it covers of a pixel is what the
/// stroke does not.
bool PaintContext::holdRect(const QRectF& rect)
{
    const bool isFilled = m_fill.style() == FillStyle::Solid;
    const double width = m_stroke.style() <= StrokeStyle::SolidLine ? widthOf(m_stroke) : -1;
    if (!canHold() || !m_isAntialiased || width < 0 ||
        !(isFilled || m_fill.style() == FillStyle::NoFill))
        return false;
    const double half = width / 2;
    const QRectF out = rect.adjusted(-half, -half, half, half);
    const QRectF in = rect.adjusted(half, half, -half, -half);
    const bool hasInside = in.width() > 0 && in.height() > 0;
    const bool isCovering = isFilled && m_fill.color().alpha() == 255 && m_opacity == 1;
    if (width == 0 || !hasInside || isCovering) {
        if (width > 0)
            hold(out, m_stroke.color());
    } else {
        hold(QRectF(out.topLeft(), QSizeF(out.width(), width)), m_stroke.color());
        hold(QRectF(out.x(), in.bottom(), out.width(), width), m_stroke.color());
        hold(QRectF(out.x(), in.y(), width, in.height()), m_stroke.color());
        hold(QRectF(in.right(), in.y(), width, in.height()), m_stroke.color());
    }
    if (isFilled && hasInside)
        hold(in, m_fill.color());
    return true;
}

/// In pixels. A view that is not as long in all directions makes upright lines another width than
/// level ones.
double PaintContext::widthAcross(const QLineF& pixels) const
{
    if (m_stroke.logicalWidth() == 0 || (m_isMovedOnly && m_isUniformView))
        return m_penWidth;
    if (!m_isMovedOnly) // stretched, it would fade away
        return isUniform(nodeToDevice()) ? m_penWidth : 1;
    const double width = drawnWidth(m_stroke, m_options.viewScale);
    if (pixels.dx() == 0)
        return width * std::abs(m_viewToPixels.m11());
    return pixels.dy() == 0 ? width * std::abs(m_viewToPixels.m22()) : m_penWidth;
}

/// Cut dashes always, lest their picture depend on what is exposed.
bool PaintContext::holdsLines() const
{
    return m_stroke.style() == StrokeStyle::SolidLine && m_penWidth <= 1 &&
           ((m_isCut && m_pixels) || (canHold() && m_isAntialiased));
}

QPointF PaintContext::heldPoint(const QPointF& point) const
{
    if (!m_isMovedOnly || !m_isUpright)
        return nodeToPixels().map(point);
    const QPointF inScene = point + m_offset;
    return {inScene.x() * m_viewToPixels.m11() + m_viewToPixels.dx(),
            inScene.y() * m_viewToPixels.m22() + m_viewToPixels.dy()};
}

void PaintContext::holdLine(const QLineF& pixels, QRgb color, bool goesOn)
{
    if (m_pixels && !m_isAntialiased)
        return m_pixels->drawSharp(pixels, color, goesOn);
    if (m_pixels)
        return m_pixels->draw(pixels, widthAcross(pixels), color);
    if (m_held.isFull())
        flush();
    m_held.add(pixels, widthAcross(pixels), color);
}

/// Without joins, which are less than a pixel.
bool PaintContext::holdLines(std::span<const QPointF> points)
{
    if (!holdsLines())
        return false;
    const bool isFaint = !m_isAntialiased && m_penWidth < 1;
    const QRgb color = heldColor(isFaint ? faded(m_stroke.color(), m_penWidth) : m_stroke.color());
    const auto place = [this](const QPointF& point) {
        return heldPoint(m_isPixelAligned ? aligned(point) : point);
    };
    QPointF before = place(points.front());
    for (std::size_t i = 1; i < points.size(); ++i) {
        const QPointF after = place(points[i]);
        holdLine({before, after}, color, i + 1 < points.size());
        before = after;
    }
    return true;
}

/// The edges of a shape, where it is; curves as chords that are not told from them.
void PaintContext::holdPath(const QPainterPath& path)
{
    constexpr double kUnseen = 0.1; // pixels
    const QRgb color = heldColor(m_stroke.color());
    QPointF before;
    const auto goTo = [&](const QPointF& after) {
        holdLine({before, after}, color, false);
        before = after;
    };
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (element.isMoveTo()) {
            before = heldPoint(element);
        } else if (element.isLineTo()) {
            goTo(heldPoint(element));
        } else {
            m_movedPoints.clear();
            const Cubic curve{{before, heldPoint(element), heldPoint(path.elementAt(i + 1)),
                               heldPoint(path.elementAt(i + 2))}};
            curve.appendChordsWithin(kUnseen, m_movedPoints);
            i += 2;
            for (const QPointF& point : m_movedPoints)
                goTo(point);
        }
    }
}

bool PaintContext::holdAll(const Polylines& lines)
{
    // The first one tells for all.
    for (std::size_t i = 0; i < lines.lineCount(); ++i) {
        if (!holdLines(lines.line(i)))
            return false;
    }
    return true;
}

void PaintContext::flush()
{
    if (m_held.isEmpty())
        return;
    m_held.draw(m_painter, m_pixelRatio);
    forgetPainterState();
}

} // namespace Tova2
