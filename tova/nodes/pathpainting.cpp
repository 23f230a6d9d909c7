#include "nodes/pathpainting.h"

#include "nodes/crossings/crossingmarks.h"
#include "nodes/paintcontext.h"
#include "nodes/pathcache.h"
#include "nodes/pointthinner.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

/// The part of the line inside the rectangle; null when there is none.
QLineF clipped(const QLineF& line, const QRectF& rect)
{
    double first = 0, last = 1;
    const auto cut = [&](double from, double step, double least, double most) {
        if (step == 0)
            return from >= least && from <= most;
        const double a = (least - from) / step, b = (most - from) / step;
        first = std::max(first, std::min(a, b));
        last = std::min(last, std::max(a, b));
        return first < last;
    };
    // Halved, since the distance of two finite numbers may not be one.
    const double dx = 2 * (line.x2() / 2 - line.x1() / 2), dy = 2 * (line.y2() / 2 - line.y1() / 2);
    if (!std::isfinite(dx) || !std::isfinite(dy) ||
        !cut(line.x1(), dx, rect.left(), rect.right()) ||
        !cut(line.y1(), dy, rect.top(), rect.bottom()))
        return {};
    return {line.x1() + first * dx, line.y1() + first * dy, line.x1() + last * dx,
            line.y1() + last * dy};
}

} // namespace

PathNodeImpl::Painting::Painting(const PathNodeImpl& node, PaintContext& context)
    : m_node(node)
    , m_context(context)
    , m_flat(node.flat())
    , m_marks(context.simplification().hasMarks ? node.crossingMarks(context.options().viewScale)
                                                : nullptr)
{}

void PathNodeImpl::paintNode(PaintContext& context) const
{
    Painting(*this, context).run();
}

void PathNodeImpl::Painting::run()
{
    if (m_flat.pieceCount() == 0)
        return;
    const bool isExact = m_node.isExact();
    if (!m_flat.chunks.empty() || !isExact || m_marks)
        findExposed();
    if (!isExact)
        return drawFarLines();
    const Runs runs = m_node.runsOf(m_flat);
    if (runs.size() == 1 && runs[0].isLoop && isAllSeen() && !m_marks)
        return drawLoop(*runs[0].stroke);
    if (m_node.isFilled())
        drawLoop(Stroke::NoStroke());
    for (const Run& part : runs)
        drawRun(part);
}

void PathNodeImpl::Painting::findExposed()
{
    // A few marks cost less than to tell which of them are seen.
    constexpr std::size_t kFewMarks = 32;
    constexpr double far = Limits::pathCoordinate;
    if (m_marks && m_flat.chunks.empty() && m_node.isExact() &&
        m_marks->crossingCount() < kFewMarks) {
        m_exposed = QRectF(-far, -far, 2 * far, 2 * far);
        m_isAllExposed = true;
        return;
    }
    const QTransform toDevice = m_context.nodeToDevice();
    const QRectF exposed = Vetra::toQt(m_context.options().exposed);
    bool isInvertible = false;
    const QTransform toLocal = toDevice.inverted(&isInvertible);
    if (exposed.isEmpty() || !isInvertible) {
        m_exposed = m_node.strokedRect();
        return;
    }
    double widest = m_node.drawStyle().stroke().width(m_context.options().viewScale);
    for (const Stroke& stroke : m_node.strokes())
        widest = std::max(widest, stroke.width(m_context.options().viewScale));
    // The longest mitre is a little more than two widths.
    const double unit = 1 / scale();
    const double marks = m_marks ? m_node.markReach() * std::max(1.0, unit) : 0;
    const double around = 2.5 * widest + m_node.slack() + marks + 2 * unit;
    m_exposed = toLocal.mapRect(m_context.view().mapRect(exposed))
                    .adjusted(-around, -around, around, around);
}

double PathNodeImpl::Painting::scale() const
{
    return std::sqrt(std::abs(m_context.nodeToDevice().determinant()));
}

bool PathNodeImpl::Painting::isAllSeen() const
{
    return seenCount() == m_flat.chunks.size();
}

std::size_t PathNodeImpl::Painting::seenCount() const
{
    return static_cast<std::size_t>(
        std::count_if(m_flat.chunks.begin(), m_flat.chunks.end(),
                      [this](const FlatChunk& chunk) { return chunk.touches(m_exposed); }));
}

void PathNodeImpl::Painting::setStyle(const Stroke& stroke, bool isFilled)
{
    const DrawStyle& own = m_node.drawStyle();
    const bool isUnfilled = own.fill().style() == FillStyle::NoFill;
    if (stroke == own.stroke() && (isFilled || isUnfilled))
        return m_context.setStyle(own);
    DrawStyle style = own;
    style.setStroke(stroke);
    if (!isFilled)
        style.setFill(Fill::NoFill());
    m_context.setStyle(style);
}

void PathNodeImpl::Painting::drawLoop(const Stroke& stroke)
{
    if (stroke.isNoStroke() && !m_node.isFilled())
        return;
    setStyle(stroke, true);
    const bool isMany = m_flat.points.size() > kManyPoints;
    if (m_node.isCurved() && !((isMany || isCoarsest()) && chordsAreSmooth()))
        return m_context.drawPath(m_node.wholePath());
    if (!isMany)
        return m_context.drawPolygon(m_flat.points);
    std::vector<QPointF> few;
    PointThinner thinner(m_context.nodeToPixels());
    const auto keep = [&few](const QPointF& p) { few.push_back(p); };
    for (const QPointF& p : m_flat.points)
        thinner.add(p, keep);
    thinner.finish(keep);
    m_context.drawPolygon(few);
}

void PathNodeImpl::Painting::drawRun(const Run& whole)
{
    if (whole.stroke->isNoStroke())
        return;
    const Run run = fromUnseen(whole);
    setStyle(*run.stroke, false);
    const auto stretches = seenParts(run);
    if (stretches.empty())
        return;
    const bool isMany = seenCount() * FlatChunk::kPieces > kManyPoints;
    const bool asCurves = m_node.isCurved() && !((isMany || isCoarsest()) && chordsAreSmooth());
    if (m_marks && (asCurves || !m_context.isOnPixels()))
        drawMarkedCurves(run, stretches);
    else if (asCurves)
        drawCurves(run, stretches);
    else if (m_marks)
        drawMarkedLines(run, stretches);
    else
        drawLines(run, stretches);
    if (m_marks && m_fadingWidth == 0)
        drawFades(run, stretches);
}

bool PathNodeImpl::Painting::isCoarsest() const
{
    return m_context.options().quality == 0;
}

bool PathNodeImpl::Painting::chordsAreSmooth() const
{
    // They are off by a twentieth of a unit at most.
    constexpr double kMostScale = 2;
    return scale() <= kMostScale;
}

// Where the toolkit's own arithmetic fails, it is given only what is seen, line by line.
void PathNodeImpl::Painting::drawFarLines()
{
    constexpr double far = Limits::pathCoordinate;
    m_exposed = m_exposed.intersected(QRectF(-far, -far, 2 * far, 2 * far));
    for (std::size_t piece = 0; piece < m_flat.pieceCount(); ++piece) {
        const Stroke& stroke = m_node.strokeOf(m_flat.segmentOf(piece));
        const QLineF line = clipped({m_flat.start(piece), m_flat.end(piece)}, m_exposed);
        if (stroke.isNoStroke() || line.isNull() || !isSeen(piece))
            continue;
        setStyle(stroke, false);
        m_context.drawLine(line);
    }
}

} // namespace Tova2
