#include "nodes/pathpainting.h"

#include "nodes/crossings/crossingmarks.h"
#include "nodes/paintcontext.h"
#include "nodes/pathcache.h"
#include "nodes/pen.h"
#include "nodes/pointthinner.h"
#include "nodes/segmenttests.h"

#include "tova/nodes/geometry/limits.h"
#include "vetra/qt.h"

#include <QLineF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

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
    double widest = drawnWidth(m_node.drawStyle().stroke(), m_context.options().viewScale);
    for (const Stroke& stroke : m_node.strokes())
        widest = std::max(widest, drawnWidth(stroke, m_context.options().viewScale));
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
    return std::all_of(m_flat.chunks.begin(), m_flat.chunks.end(),
                       [this](const FlatChunk& chunk) { return chunk.touches(m_exposed); });
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
    if (m_node.isCurved() && !isDrawnByChords({0, m_flat.pieceCount(), &stroke, true}))
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
    const bool asCurves = m_node.isCurved() && !isDrawnByChords(run);
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

// By the whole path, whatever of it is seen. The lengths of very many curves are known by chords.
bool PathNodeImpl::Painting::isDrawnByChords(const Run& run) const
{
    const bool isMany = m_flat.points.size() > kManyPoints;
    const bool isCoarsest = m_context.options().quality == 0;
    return ((isMany || isCoarsest) && chordsAreSmooth()) ||
           (isDashed(run) && run.count >= kManyDashed);
}

bool PathNodeImpl::Painting::isDashed(const Run& run)
{
    return run.stroke->style() > StrokeStyle::SolidLine;
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
        const QLineF line(m_flat.start(piece), m_flat.end(piece));
        const auto part = Segments::partWithin(line.p1(), line.p2(), m_exposed);
        if (stroke.isNoStroke() || !part || !isSeen(piece))
            continue;
        setStyle(stroke, false);
        // Dashes go by the whole line.
        m_context.drawLine(stroke.style() == StrokeStyle::SolidLine
                               ? QLineF(line.pointAt(part->first), line.pointAt(part->second))
                               : line);
    }
}

} // namespace Tova2
