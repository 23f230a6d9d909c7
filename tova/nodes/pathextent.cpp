#include "nodes/geometry/pathoperations.h"
#include "nodes/pathcache.h"
#include "nodes/pen.h"
#include "nodes/values.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <algorithm>
#include <numbers>

namespace Tova2 {

namespace {

/// Far beyond what any mitre reaches, as a multiple of the stroke's width.
constexpr double kFarReach = 2.5;
/// Segments whose joins are looked at at once.
constexpr std::size_t kWindow = 4096;

QRectF united(const QRectF& a, const QRectF& b)
{
    // Unlike the toolkit's, it counts rectangles without an area.
    QRectF rect;
    rect.setCoords(std::min(a.left(), b.left()), std::min(a.top(), b.top()),
                   std::max(a.right(), b.right()), std::max(a.bottom(), b.bottom()));
    return rect;
}

/// Only right angles, and never straight back: mitres and caps stay within half the stroke around.
bool isRectilinear(const FlatPath& flat)
{
    if (flat.isClosed)
        return false;
    QPointF before;
    for (std::size_t i = 0; i < flat.pieceCount(); ++i) {
        const QPointF step = flat.end(i) - flat.start(i);
        if (step.isNull())
            continue;
        if ((step.x() != 0 && step.y() != 0) || QPointF::dotProduct(step, before) < 0)
            return false;
        before = step;
    }
    return true;
}

/// Whether whoever allows for `own` at other view scales allows for `stroke` as well.
bool isAllowedForWith(const Stroke& own, const Stroke& stroke)
{
    return !own.isNoStroke() && stroke.scaleFunction() == own.scaleFunction() &&
           stroke.logicalWidth() <= own.logicalWidth() &&
           (stroke.logicalWidth() == 0) == (own.logicalWidth() == 0);
}

bool dependsOnScale(const Stroke& stroke)
{
    return stroke.logicalWidth() == 0 || stroke.scaleFunction() != LodScale::instance();
}

/// Of the two ends, with their caps at any angle: a line that ends where it began still has them.
StrokeExtent endsExtent(const FlatPath& flat, std::size_t first, std::size_t last,
                        const Stroke& stroke)
{
    const QPointF& start = flat.start(first);
    const QRectF rect(start, QSizeF(0, 0));
    if (isSame(start, flat.end(last)) && stroke.capStyle() == StrokeCapStyle::SquareCap) {
        const double around = 2 * halfStroke(stroke) * std::numbers::sqrt2 / 2;
        return {rect.adjusted(-around, -around, around, around), std::numbers::sqrt2 / 2};
    }
    return {rect, 0};
}

} // namespace

QRectF PathNodeImpl::geometryRect() const
{
    return plainPoints().empty() ? exactRect() : flat().boundingRect();
}

bool PathNodeImpl::geometryDependsOnScale() const
{
    const Stroke& own = drawStyle().stroke();
    return std::any_of(strokes().begin(), strokes().end(), [&](const Stroke& stroke) {
        return !stroke.isNoStroke() && dependsOnScale(stroke) && !isAllowedForWith(own, stroke);
    });
}

// With all strokes but the node's own, which others allow for.
QRectF PathNodeImpl::geometryRectAt(double viewScale) const
{
    if (!m_strokes)
        return geometryRect();
    extent();
    double around = 0;
    for (const Stroke& stroke : m_strokes->list) {
        around = std::max(around, drawnWidth(stroke, viewScale) * m_strokes->reach);
    }
    return geometryRect().adjusted(-around, -around, around, around);
}

bool PathNodeImpl::isExact() const
{
    const QRectF rect = strokedRect();
    return std::max({std::abs(rect.left()), std::abs(rect.top()), std::abs(rect.right()),
                     std::abs(rect.bottom())}) <= Limits::exactShapeCoordinate;
}

const StrokeExtent& PathNodeImpl::extent() const
{
    if (m_extent.reach < 0)
        m_extent = computedExtent();
    return m_extent;
}

StrokeExtent PathNodeImpl::computedExtent() const
{
    const FlatPath flat = this->flat();
    const QRectF geometry = geometryRect();
    StrokeExtent result{geometry, 0.5};
    double farthest = 0.5;
    for (const Run& run : runsOf(flat)) {
        const StrokeExtent extent = extentOf(flat, run, geometry);
        result.rect = united(result.rect, extent.rect);
        farthest = std::max(farthest, extent.reach);
        if (isAllowedForWith(drawStyle().stroke(), *run.stroke))
            result.reach = std::max(result.reach, extent.reach);
    }
    if (m_strokes)
        m_strokes->reach = farthest;
    return result;
}

StrokeExtent PathNodeImpl::extentOf(const FlatPath& flat, const Run& run, const QRectF& whole) const
{
    const double far = kFarReach * 2 * halfStroke(*run.stroke);
    if (!isFinite(whole) || !(whole.width() + whole.height() < Limits::exactShapeCoordinate))
        return {whole.adjusted(-far, -far, far, far), kFarReach};
    if (!isCurved() && isRectilinear(flat) && !m_strokes)
        return {strokedHull(whole, *run.stroke), 0.5};
    if (!m_strokes && run.stroke->style() == StrokeStyle::SolidLine &&
        run.stroke->capStyle() != StrokeCapStyle::SquareCap && !dependsOnScale(*run.stroke) &&
        hasSmoothCorners(2 * halfStroke(*run.stroke)))
        return {strokedHull(whole, *run.stroke), 0.5};
    StrokeExtent result =
        endsExtent(flat, run.first, (run.first + run.count - 1) % flat.pieceCount(), *run.stroke);
    const Range all = segmentsOf(flat, run.first, run.count);
    const bool isLongLoop = run.isLoop && all.last - all.first > kWindow;
    const std::size_t end = all.last + (isLongLoop ? 1 : 0);
    for (std::size_t first = all.first; first <= end; first += kWindow) {
        // One more, for the join between two windows.
        QPainterPath part = pathOf({first, std::min(first + kWindow, end)});
        if (run.isLoop && !isLongLoop)
            part.closeSubpath();
        const QRectF rect = Vetra::toQt(Tova2::boundingRectOf(part));
        const StrokeExtent extent = strokeExtentOf(subpathsOf(part), rect, *run.stroke);
        result.rect = united(result.rect, extent.rect);
        result.reach = std::max(result.reach, extent.reach);
    }
    return result;
}

} // namespace Tova2
