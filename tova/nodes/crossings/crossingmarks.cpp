#include "nodes/crossings/crossingmarks.h"

#include "nodes/linearpathnodeimpl.h"
#include "nodes/lineends.h"
#include "nodes/pathcounters.h"
#include "nodes/scenelink.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

using Element = QPainterPath::Element;

CrossingMarks::CrossingMarks(const LinearPathNodeImpl& path,
                             std::span<const PathIntersection> crossings)
    : m_toScene(path.sceneTransform()), m_path(path), m_crossings(crossings)
{
    bool isInvertible = false;
    m_toLocal = m_toScene.inverted(&isInvertible);
    if (isInvertible)
        findSegments();
    PathCounters::outlinesBuilt().increment();
}

// By the vertices, mapped as they were for the crossings: both are compared exactly.
void CrossingMarks::findSegments()
{
    const auto& points = m_path.points();
    QPointF from = m_toScene.map(points[0]);
    for (std::size_t segment = 0; segment < m_path.segmentCount(); ++segment) {
        const QPointF to = m_toScene.map(points[(segment + 1) % points.size()]);
        if (!m_crossings.on(from, to).empty())
            m_segments.push_back({static_cast<std::uint32_t>(segment), false, 0, 0, {}, {}});
        from = to;
    }
    m_segments.shrink_to_fit();
}

void CrossingMarks::setScale(double viewScale)
{
    if (viewScale == m_scale)
        return;
    m_scale = viewScale;
    m_marks.clear();
    m_curves.clear();
    m_fades.clear();
    m_area = {};
    for (Segment& segment : m_segments)
        segment.isLaidOut = false;
}

std::size_t CrossingMarks::indexFrom(std::size_t segment) const
{
    const auto found = std::ranges::lower_bound(m_segments, segment, {}, &Segment::segment);
    return static_cast<std::size_t>(found - m_segments.begin());
}

CrossingMarks::Marked CrossingMarks::at(std::size_t index, const QRectF& seen)
{
    Segment& segment = m_segments[index];
    if (!segment.isLaidOut)
        layOut(segment);
    const std::span all(m_marks.begin() + segment.firstMark, segment.markCount);
    const auto [start, along] = std::pair(segment.start, segment.along);
    const auto reach = [&seen](const QPointF& middle, const QPointF& way) {
        const QPointF offset = seen.center() - middle;
        const double half =
            std::abs(way.x()) * seen.width() / 2 + std::abs(way.y()) * seen.height() / 2;
        const double centre = QPointF::dotProduct(offset, way);
        return std::pair(centre - half, centre + half);
    };
    const auto [left, right] = reach(start, {-along.y(), along.x()});
    const auto [low, high] = reach(start, along);
    auto first = all.begin(), last = all.begin();
    if (left <= 0 && right >= 0) {
        first = std::ranges::lower_bound(all, low, {}, &Mark::to);
        last = std::ranges::upper_bound(first, all.end(), high, {}, &Mark::from);
    }
    return {start, along, {first, last}, m_curves, m_fades};
}

void CrossingMarks::layOut(Segment& segment)
{
    PathCounters::marksLaidOut().increment();
    const auto drawn = m_path.drawnSegment(m_path.drawnPart(), segment.segment);
    const QPointF from = m_toScene.map(drawn.start), to = m_toScene.map(drawn.end);
    segment.start = drawn.start;
    segment.along = LineTip::between(drawn.start, drawn.end).direction;
    segment.firstMark = static_cast<std::uint32_t>(m_marks.size());
    segment.isLaidOut = true;
    CrossingOutline outline;
    outline.main.moveTo(from);
    const CrossingContext context{outline, m_path.lineWidth(), m_scale,
                                  LinearPathNodeImpl::lineWidthOf};
    decorateSegment(*m_path.sceneLink()->crossingDecorator(), context, m_crossings, from, to);
    addMarks(segment, outline);
    segment.markCount = static_cast<std::uint32_t>(m_marks.size()) - segment.firstMark;
}

double CrossingMarks::distance(const Segment& segment, const QPointF& scenePoint) const
{
    return QPointF::dotProduct(m_toLocal.map(scenePoint) - segment.start, segment.along);
}

// Pins say all about their gaps; hops are arcs of the line, or gaps in it, each with an arc of its
// own where the line is thin.
void CrossingMarks::addMarks(const Segment& segment, const CrossingOutline& outline)
{
    for (const PinMark& pin : outline.pins)
        addPin(segment, pin);
    if (!outline.pins.empty())
        return;
    const QPainterPath &main = outline.main, &thin = outline.thinHops;
    double current = 0;
    for (int i = 1, nextThin = 0; i < main.elementCount(); ++i) {
        const Element element = main.elementAt(i);
        if (element.isLineTo()) {
            current = distance(segment, element);
            continue;
        }
        Mark mark{current, distance(segment, element)};
        mark.firstCurve = static_cast<std::uint32_t>(m_curves.size());
        if (element.isCurveTo()) {
            i = addCurves(main, i) - 1;
            mark.to = distance(segment, main.elementAt(i));
        } else if (nextThin < thin.elementCount()) {
            nextThin = addCurves(thin, nextThin + 1);
            mark.isApart = true;
        }
        mark.curveCount = static_cast<std::uint32_t>(m_curves.size()) - mark.firstCurve;
        current = mark.to;
        m_marks.push_back(mark);
    }
}

/// Up to what is no curve.
int CrossingMarks::addCurves(const QPainterPath& path, int first)
{
    for (; first < path.elementCount() && path.elementAt(first).isCurveTo(); first += 3)
        m_curves.push_back({m_toLocal.map(QPointF(path.elementAt(first))),
                            m_toLocal.map(QPointF(path.elementAt(first + 1))),
                            m_toLocal.map(QPointF(path.elementAt(first + 2)))});
    return first;
}

// Instead of being covered, the line itself fades: from where the mark begins, to nothing where the
// other line passes, and back until the mark ends. Nothing else is touched on either side. Where
// two marks meet, the one gives way to the other half-way.
void CrossingMarks::addPin(const Segment& segment, const PinMark& pin)
{
    const auto at = [&](const QPointF& p) { return distance(segment, p); };
    const double start = at(pin.start), end = at(pin.end);
    const double cutStart = at(pin.cutStart), cutEnd = at(pin.cutEnd);
    const bool isFirst = m_marks.size() == segment.firstMark;
    const bool meetsLast = !isFirst && start <= m_marks.back().to;
    if (!meetsLast)
        m_marks.push_back({start, end, 0, 0, static_cast<std::uint32_t>(m_fades.size())});
    Mark& mark = m_marks.back();
    mark.to = std::max(mark.to, end);
    if (pin.start == pin.cutStart)
        return;
    double middle = start;
    if (meetsLast) {
        Fade& last = m_fades.back();
        middle = std::max(last.clear, std::min((start + last.full) / 2, cutStart));
        last.end = middle;
    }
    m_fades.push_back({cutStart, start, middle});
    m_fades.push_back({cutEnd, end, end});
    mark.fadeCount += 2;
}

} // namespace Tova2
