#include "nodes/crossings/crossingmarks.h"

#include "nodes/linearpathnodeimpl.h"
#include "nodes/pathcounters.h"
#include "nodes/scenelink.h"
#include "nodes/values.h"

#include <algorithm>

namespace Tova2 {

CrossingMarks::CrossingMarks(const LinearPathNodeImpl& path,
                             std::span<const PathIntersection> crossings)
    : m_path(path), m_toScene(path.sceneTransform()), m_crossings(crossings)
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
            m_segments.push_back({static_cast<std::uint32_t>(segment), false, {}, {}, {}});
        from = to;
    }
    m_segments.shrink_to_fit();
}

void CrossingMarks::setScale(double viewScale)
{
    if (viewScale == m_scale)
        return;
    m_scale = viewScale;
    m_elements.clear();
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

CrossingMarks::Marks CrossingMarks::at(std::size_t index)
{
    Segment& segment = m_segments[index];
    if (!segment.isLaidOut)
        layOut(segment);
    const auto part = [](const auto& all, const Extent& extent) {
        return std::span(all).subspan(extent.first, extent.count);
    };
    return {part(m_elements, segment.line), part(m_elements, segment.thinHops),
            part(m_fades, segment.fades)};
}

void CrossingMarks::layOut(Segment& segment)
{
    PathCounters::marksLaidOut().increment();
    const auto drawn = m_path.drawnSegment(segment.segment);
    const QPointF from = m_toScene.map(drawn.start), to = m_toScene.map(drawn.end);
    CrossingOutline outline;
    outline.main.moveTo(from);
    const CrossingContext context{outline, m_path.lineWidth(), m_scale,
                                  LinearPathNodeImpl::lineWidthOf};
    decorateSegment(*m_path.sceneLink()->crossingDecorator(), context, m_crossings, from, to);
    const auto firstFade = static_cast<std::uint32_t>(m_fades.size());
    const bool fades =
        !outline.pins.empty() && !isSame(outline.pins[0].start, outline.pins[0].cutStart);
    segment.line = fades ? addFadingLine(outline) : addElements(outline.main, 1);
    segment.thinHops = addElements(outline.thinHops, 0);
    segment.fades = {firstFade, static_cast<std::uint32_t>(m_fades.size()) - firstFade};
    segment.isLaidOut = true;
}

CrossingMarks::Extent CrossingMarks::addElements(const QPainterPath& path, int first)
{
    const auto start = static_cast<std::uint32_t>(m_elements.size());
    for (int i = first; i < path.elementCount(); ++i) {
        const Element& element = path.elementAt(i);
        const QPointF local = m_toLocal.map(QPointF(element));
        m_elements.push_back({local.x(), local.y(), element.type});
    }
    return {start, static_cast<std::uint32_t>(m_elements.size()) - start};
}

// Instead of being covered, the line itself fades: from where the mark begins, to nothing where the
// other line passes, and back until the mark ends. Nothing else is touched on either side. Where
// two marks meet, the one gives way to the other half-way.
CrossingMarks::Extent CrossingMarks::addFadingLine(const CrossingOutline& outline)
{
    QPainterPath line(outline.main.elementAt(0));
    const auto local = [this](const QPointF& p) { return m_toLocal.map(p); };
    QPointF lastEnd;
    for (const PinMark& pin : outline.pins) {
        const bool meetsLast = &pin != &outline.pins.front() &&
                               QPointF::dotProduct(pin.start - lastEnd, pin.end - pin.start) <= 0;
        const QPointF middle = meetsLast ? (pin.start + lastEnd) / 2 : pin.start;
        if (meetsLast)
            m_fades.back().end = local(middle);
        else
            line.lineTo(pin.start);
        m_fades.push_back({local(pin.cutStart), local(pin.start), local(middle)});
        m_fades.push_back({local(pin.cutEnd), local(pin.end), local(pin.end)});
        line.moveTo(pin.end);
        lastEnd = pin.end;
    }
    return addElements(line, 1);
}

} // namespace Tova2
