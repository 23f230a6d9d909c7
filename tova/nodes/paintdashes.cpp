#include "nodes/paintcontext.h"

#include "nodes/dashes.h"
#include "nodes/flatpath.h"
#include "nodes/pen.h"

#include <QPainter>

#include <algorithm>

namespace Tova2 {

namespace {

/// Longer mitres than any.
constexpr double kFarReach = 2.5; // widths
constexpr double kUnseen = 0.1;   // pixels

double longerSide(const QRectF& rect)
{
    return std::max(rect.width(), rect.height());
}

} // namespace

bool PaintContext::isDashed() const
{
    return m_stroke.style() > StrokeStyle::SolidLine &&
           m_stroke.style() <= StrokeStyle::DashDotDotLine;
}

/// In local units; a pixel at least, so that there are no more dashes than can be seen.
double PaintContext::dashUnit() const
{
    return std::max(m_penWidth, 1.0) / pixelsAUnit();
}

/// On pixels, since where the toolkit's dashes lie depends on what it leaves out unseen; but what
/// it fills without antialiasing it rounds by all that is filled at once. Elsewhere a dashed stroke
/// is to stay one. Whatever would have too many dashes is cut.
bool PaintContext::cutsDashes(double extent) const
{
    constexpr double kMost = 10'000;
    const bool isFilledSharp = !m_isAntialiased && m_penWidth > 1;
    return (m_fillsStrokes && !isFilledSharp) || !(extent < kMost * dashUnit());
}

/// What is to be painted, in local units and with room for a stroke.
QRectF PaintContext::seenWithin(double width) const
{
    const double around = kFarReach * width;
    return nodeToPixels()
        .inverted()
        .mapRect(exposedPixels().adjusted(-2, -2, 2, 2))
        .adjusted(-around, -around, around, around);
}

void PaintContext::cutDashes(const QPainterPath& outline, StrokeStyle style, double unit,
                             double width, Polylines& dashes, double lengthBefore) const
{
    dashes.clear();
    Dashes(style, unit, seenWithin(width), kUnseen / pixelsAUnit(), dashes)
        .addPath(outline, lengthBefore);
    dashes.finish();
}

bool PaintContext::drawAsLines(const QPainterPath& outline, double lengthBefore)
{
    if (isDashed() && lengthBefore == 0 && !cutsDashes(longerSide(outline.controlPointRect())))
        return false;
    if (m_fill.style() != FillStyle::NoFill && drawsShifted())
        viewPainter().fillPath(outline.translated(m_offset), brushOf(m_fill));
    else if (m_fill.style() != FillStyle::NoFill)
        localPainter().fillPath(outline, brushOf(m_fill));
    if (!isDashed()) {
        holdPath(outline);
        return true;
    }
    cutDashes(outline, m_stroke.style(), dashUnit(), m_penWidth / pixelsAUnit(), m_dashes,
              lengthBefore);
    drawCutDashes();
    return true;
}

void PaintContext::drawDashes(const Polylines& lines)
{
    double longest = 0;
    bool isFromStart = true;
    for (std::size_t i = 0; i < lines.lineCount(); ++i) {
        isFromStart = isFromStart && lines.lengthBefore(i) == 0;
        longest = std::max(longest, longerSide(boundingRectOf(lines.line(i))));
    }
    if (isFromStart && !cutsDashes(longest)) {
        for (std::size_t i = 0; i < lines.lineCount(); ++i)
            drawPoints(lines.line(i), false);
        return;
    }
    m_dashes.clear();
    Dashes dashes(m_stroke.style(), dashUnit(), seenWithin(m_penWidth / pixelsAUnit()),
                  kUnseen / pixelsAUnit(), m_dashes);
    for (std::size_t i = 0; i < lines.lineCount(); ++i) {
        m_movedPoints.clear();
        for (const QPointF& p : lines.line(i))
            m_movedPoints.push_back(m_isPixelAligned ? aligned(p) : p);
        dashes.addLine(m_movedPoints, lines.lengthBefore(i));
    }
    m_dashes.finish();
    drawCutDashes();
}

/// As solid lines that have no inside.
void PaintContext::drawCutDashes()
{
    const Stroke dashed = m_stroke;
    const Fill fill = m_fill;
    const bool wasAligned = std::exchange(m_isPixelAligned, false);
    m_isCut = true;
    Stroke solid = dashed;
    solid.setStyle(StrokeStyle::SolidLine);
    useStyle(solid, Fill::NoFill());
    drawPolylines(m_dashes);
    useStyle(dashed, fill);
    m_isPixelAligned = wasAligned;
    m_isCut = false;
}

} // namespace Tova2
