#include "nodes/crossings/markedpath.h"
#include "nodes/linecollector.h"
#include "nodes/paintcontext.h"
#include "nodes/pathpainting.h"

#include <QLineF>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

/// Runs of a closed path that is not seen whole begin with a chunk that is not seen.
PathNodeImpl::Run PathNodeImpl::Painting::fromUnseen(const Run& run) const
{
    Run result = run;
    if (isDashed(run))
        return result; // dashes begin where the path does
    const std::size_t pieces = m_flat.pieceCount();
    while (run.isLoop && !m_flat.chunks.empty() && result.first < pieces && isSeen(result.first))
        result.first += FlatChunk::kPieces;
    if (result.first >= pieces)
        result.first = 0;
    return result;
}

PathNodeImpl::Painting::Stretches PathNodeImpl::Painting::seenParts(const Run& run) const
{
    const bool isDashed = this->isDashed(run);
    // Marks make a line longer, and curves are longer than their chords.
    const bool isWhole = isDashed && (m_marks || (m_node.isCurved() && run.count < kManyDashed));
    Stretches stretches;
    if (m_flat.chunks.empty() || isWhole) {
        stretches.push_back({0, run.count, 0});
        return stretches;
    }
    double length = 0;
    bool wasSeen = false;
    std::size_t step = 0;
    for (std::size_t i = 0; i < run.count; i += step) {
        const std::size_t piece = (run.first + i) % m_flat.pieceCount();
        // On to the next chunk, which may be the one around the first point.
        step = std::min({FlatChunk::kPieces - piece % FlatChunk::kPieces,
                         m_flat.pieceCount() - piece, run.count - i});
        const bool isNowSeen = isSeen(piece);
        if (isNowSeen && !wasSeen)
            stretches.push_back({i, 0, length});
        if (isNowSeen)
            stretches.back().count += step;
        wasSeen = isNowSeen;
        for (std::size_t at = piece; isDashed && at < piece + step; ++at)
            length += QLineF(m_flat.start(at), m_flat.end(at)).length();
    }
    return stretches;
}

template <class Visit>
void PathNodeImpl::Painting::forEachMark(const Run& run, const Stretches& stretches,
                                         Visit visit) const
{
    std::size_t next = 0, lastFirst = 0;
    const auto visitWithin = [&](std::size_t first, std::size_t last) {
        next = std::max(next, m_marks->indexFrom(first));
        for (; next < m_marks->count() && m_marks->segment(next) <= last; ++next)
            visit(m_marks->at(next, m_exposed));
    };
    const std::size_t pieces = m_flat.pieceCount(), segments = m_node.segmentCount();
    for (const Stretch& stretch : stretches) {
        const Range range =
            m_node.segmentsOf(m_flat, (run.first + stretch.first) % pieces, stretch.count);
        if (std::exchange(lastFirst, range.first) > range.first)
            next = 0; // a loop has come round
        visitWithin(range.first, range.last);
        if (range.last >= segments) {
            next = 0;
            visitWithin(0, range.last - segments);
        }
    }
}

void PathNodeImpl::Painting::drawLines(const Run& run, const Stretches& stretches)
{
    const Stretch& first = stretches.front();
    if (!m_marks && stretches.size() == 1 &&
        run.first + first.first + first.count < m_flat.points.size() && first.lengthBefore == 0 &&
        first.count < kManyPoints)
        return m_context.drawPolyline(
            m_flat.points.subspan(run.first + first.first, first.count + 1));
    const bool isDashed = this->isDashed(run);
    QPainterPath arcs;
    m_context.drawPolylines(collectLines(run, stretches, isDashed ? &arcs : nullptr));
    if (isDashed)
        drawArcs(arcs, *run.stroke);
}

/// Of a line with dashes, which would leave half of them out.
void PathNodeImpl::Painting::drawArcs(const QPainterPath& arcs, Stroke stroke)
{
    if (arcs.isEmpty())
        return;
    stroke.setStyle(StrokeStyle::SolidLine);
    setStyle(stroke, false);
    m_context.drawPath(arcs);
}

Polylines& PathNodeImpl::Painting::collectLines(const Run& run, const Stretches& stretches,
                                                QPainterPath* arcs)
{
    const bool isSolid = run.stroke->style() == StrokeStyle::SolidLine;
    Polylines& lines = m_context.scratchLines();
    std::size_t count = 0;
    for (const Stretch& stretch : stretches)
        count += stretch.count;
    LineCollector collector(lines, m_context.nodeToPixels(), isSolid && count > kManyPoints,
                            !isSolid);
    collector.setFadingWidth(m_fadingWidth);
    collector.setArcs(arcs);
    for (const Stretch& stretch : stretches)
        addStretch(run, stretch, collector);
    collector.finish();
    return lines;
}

// What a short line covers is kept while all of it is seen.
void PathNodeImpl::Painting::drawMarkedLines(const Run& run, const Stretches& stretches)
{
    const StrokeArea::Key key = m_context.strokeAreaKey();
    const bool isArea = key.width > 0;
    m_fadingWidth = isArea && key.cap == StrokeCapStyle::FlatCap ? key.width : 0;
    if (!isArea || !m_flat.chunks.empty())
        return drawLines(run, stretches);
    StrokeArea part;
    const bool isWhole = run.count == m_flat.pieceCount() && isAllExposed();
    StrokeArea& area = isWhole ? m_marks->area() : part;
    if (area.key != key) {
        area.key = key;
        m_context.layOut(area, collectLines(run, stretches, nullptr));
    }
    m_context.drawArea(area);
}

bool PathNodeImpl::Painting::isAllExposed() const
{
    if (m_isAllExposed)
        return true;
    const QRectF box = m_flat.boundingRect();
    return box.left() >= m_exposed.left() && box.right() <= m_exposed.right() &&
           box.top() >= m_exposed.top() && box.bottom() <= m_exposed.bottom();
}

void PathNodeImpl::Painting::addStretch(const Run& run, const Stretch& stretch,
                                        LineCollector& collector)
{
    const std::size_t pieces = m_flat.pieceCount(), start = (run.first + stretch.first) % pieces;
    collector.moveTo(m_flat.start(start), stretch.lengthBefore);
    std::size_t next = 0; // of the marks
    for (std::size_t i = 0; i < stretch.count; ++i) {
        const std::size_t piece = (start + i) % pieces;
        if (m_marks) {
            const std::size_t segment = m_flat.segmentOf(piece);
            if (i == 0 || piece == 0)
                next = m_marks->indexFrom(segment);
            // Further pieces of a segment are its corner.
            const bool isFirst = piece == 0 || m_flat.segmentOf(piece - 1) != segment;
            if (next < m_marks->count() && m_marks->segment(next) == segment) {
                if (isFirst)
                    collector.add(m_marks->at(next, m_exposed));
                ++next;
            }
        }
        collector.lineTo(m_flat.end(piece));
    }
    if (!run.isLoop || stretch.count < pieces || isDashed(run))
        return;
    // A little way along the first piece again, so that it is joined with the last.
    const QPointF from = m_flat.start(start), way = m_flat.end(start) - from;
    const double length = std::hypot(way.x(), way.y());
    constexpr double kJoin = 0.01;
    if (length > 0)
        collector.lineTo(from + way * (std::min(kJoin, length / 2) / length));
}

void PathNodeImpl::Painting::drawCurves(const Run& run, const Stretches& stretches)
{
    if (!m_flat.isClosed && stretches[0].count == m_flat.pieceCount())
        return m_context.drawPath(m_node.wholePath());
    // Drawn one by one they would show where they cross.
    const Ranges ranges = segmentsAround(run, stretches);
    if (ranges[0].last - ranges[0].first >= m_node.segmentCount())
        return m_context.drawPath(m_node.wholePath());
    QPainterPath path;
    for (const Range& range : ranges)
        path.addPath(m_node.pathOf(range));
    m_context.drawPath(path);
}

/// Nothing twice: where neighbours of two stretches meet, they are one.
PathNodeImpl::Painting::Ranges
PathNodeImpl::Painting::segmentsAround(const Run& run, const Stretches& stretches) const
{
    Ranges ranges;
    for (const Stretch& stretch : stretches) {
        const Range next = segmentsAround(run, stretch);
        if (!ranges.empty() && next.first <= ranges.back().last + 1)
            ranges.back().last = std::max(ranges.back().last, next.last);
        else
            ranges.push_back(next);
    }
    const std::size_t count = m_node.segmentCount();
    if (ranges.size() > 1 && ranges.back().last >= ranges.front().first + count) {
        ranges.back().last = std::max(ranges.back().last, ranges.front().last + count);
        ranges.erase(ranges.begin());
    }
    return ranges;
}

void PathNodeImpl::Painting::drawMarkedCurves(const Run& run, const Stretches& stretches)
{
    MarkedPath drawn;
    drawn.seen = m_exposed;
    drawn.isDashed = run.stroke->style() != StrokeStyle::SolidLine;
    for (const Range& range : segmentsAround(run, stretches))
        m_node.appendMarked(range, *m_marks, drawn);
    double before = stretches.front().lengthBefore;
    for (const MarkedPath::Line& line : drawn.lines) {
        if (!drawn.isDashed)
            break;
        m_context.drawPath(line.path, before);
        before += line.path.length() + line.gap;
    }
    if (drawn.isDashed)
        return drawArcs(drawn.arcs, *run.stroke);
    drawn.lines.front().path.addPath(drawn.arcs);
    m_context.drawPath(drawn.lines.front().path);
}

/// With a neighbour on each side, so that nothing ends where something is seen.
PathNodeImpl::Range PathNodeImpl::Painting::segmentsAround(const Run& run,
                                                           const Stretch& stretch) const
{
    const std::size_t pieces = m_flat.pieceCount();
    const Range all = m_node.segmentsOf(m_flat, run.first, run.count);
    const std::size_t first = run.first + stretch.first;
    Range seen = m_node.segmentsOf(m_flat, first % pieces, stretch.count);
    if (first >= pieces)
        seen = {seen.first + m_node.segmentCount(), seen.last + m_node.segmentCount()};
    return {seen.first > all.first ? seen.first - 1 : all.first, std::min(seen.last + 1, all.last)};
}

void PathNodeImpl::Painting::drawFades(const Run& run, const Stretches& stretches)
{
    forEachMark(run, stretches, [this](const CrossingMarks::Marked& marked) {
        for (const CrossingMarks::Mark& mark : marked.marks) {
            for (const CrossingMarks::Fade& fade : marked.fades(mark))
                m_context.drawFade(marked.at(fade.clear), marked.at(fade.full),
                                   marked.at(fade.end));
        }
    });
}

} // namespace Tova2
