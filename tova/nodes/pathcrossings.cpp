#include "nodes/crossings/segmentcrossings.h"
#include "nodes/linearpathnodeimpl.h"
#include "nodes/scenelink.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace Tova2 {

namespace {

double scaleOf(const QTransform& transform)
{
    return std::sqrt(std::abs(transform.determinant()));
}

double widthOfCrossed(const WeakRef& ref)
{
    NodeImpl* const node = ref.getImpl();
    const LinearPathNodeImpl* const path = node ? node->asLinearPath() : nullptr;
    return path ? path->lineWidth() : 0.0;
}

void mapBack(CrossingOutline& outline, const QTransform& toLocal)
{
    outline.main = toLocal.map(outline.main);
    outline.thinHops = toLocal.map(outline.thinHops);
    for (PinMark& pin : outline.pins) {
        pin.start = toLocal.map(pin.start);
        pin.end = toLocal.map(pin.end);
    }
}

} // namespace

std::span<const PathIntersection> LinearPathNodeImpl::crossings() const
{
    return m_crossings ? std::span<const PathIntersection>(*m_crossings)
                       : std::span<const PathIntersection>();
}

bool LinearPathNodeImpl::hasCrossings() const
{
    return m_crossings && sceneLink() && sceneLink()->crossingDecorator();
}

void LinearPathNodeImpl::setCrossings(std::vector<PathIntersection>&& crossings)
{
    if (crossings.empty())
        m_crossings.reset();
    else
        m_crossings = std::make_unique<std::vector<PathIntersection>>(std::move(crossings));
}

double LinearPathNodeImpl::lineWidth() const
{
    const Stroke& stroke = drawStyle().stroke();
    if (stroke.isNoStroke())
        return 0;
    return stroke.logicalWidth() > 0 ? stroke.logicalWidth() * scaleOf(sceneTransform()) : 1.0;
}

// The hop reaches farthest: its room, the lines' widths in it, and half of its own beyond.
double LinearPathNodeImpl::markReach() const
{
    constexpr double kHopRoom = 3.5;
    if (!m_crossings)
        return 0;
    double widest = 0;
    for (const PathIntersection& crossing : *m_crossings)
        widest = std::max(widest, widthOfCrossed(crossing.other));
    return kHopRoom + 2 * lineWidth() + widest;
}

LinearPathNodeImpl::DrawnSegment LinearPathNodeImpl::drawnSegment(const Range&,
                                                                  std::size_t segment) const
{
    const std::size_t count = points().size();
    return {points()[segment % count], points()[(segment + 1) % count], {}, false};
}

// Crossings are where the scene's coordinates say, so the outline is built there, with the same
// mapping of vertices.
bool LinearPathNodeImpl::buildCrossings(const Range& range, double viewScale,
                                        CrossingOutline& out) const
{
    if (!hasCrossings())
        return false;
    const auto* const decorator = sceneLink()->crossingDecorator();
    const QTransform toScene = sceneTransform();
    bool isInvertible = false;
    const QTransform toLocal = toScene.inverted(&isInvertible);
    if (!isInvertible)
        return false;
    const SegmentCrossings crossings(*m_crossings);
    const CrossingContext context{out, lineWidth(), viewScale, widthOfCrossed};
    out.main.moveTo(toScene.map(drawnSegment(range, range.first).start));
    for (std::size_t segment = range.first; segment <= range.last; ++segment) {
        const DrawnSegment drawn = drawnSegment(range, segment);
        const QPointF from = toScene.map(drawn.start), to = toScene.map(drawn.end);
        decorateSegment(*decorator, context, crossings, from, to);
        out.main.lineTo(to);
        if (!drawn.corner)
            continue;
        const auto& curve = drawn.corner->points;
        if (drawn.isCornerStraight)
            out.main.lineTo(toScene.map(curve[3]));
        else
            out.main.cubicTo(toScene.map(curve[1]), toScene.map(curve[2]), toScene.map(curve[3]));
    }
    if (isClosed() && range.last - range.first + 1 == segmentCount()) {
        // A little way along the first piece again, so that it is joined with the last.
        const DrawnSegment first = drawnSegment(range, range.first);
        const QPointF way = first.end - first.start;
        const double length = std::hypot(way.x(), way.y());
        constexpr double kJoin = 0.01;
        if (length > 0)
            out.main.lineTo(
                toScene.map(first.start + way * (std::min(kJoin, length / 2) / length)));
    }
    mapBack(out, toLocal);
    return true;
}

std::vector<PathIntersection> LinearPathNodeImpl::drawnCrossings() const
{
    std::vector<PathIntersection> drawn;
    if (!hasCrossings() || points().size() < 2)
        return drawn;
    const auto* const decorator = sceneLink()->crossingDecorator();
    const QTransform toScene = sceneTransform();
    const SegmentCrossings crossings(*m_crossings);
    CrossingOutline outline;
    const CrossingContext context{outline, lineWidth(), 1.0, widthOfCrossed};
    const Range all{0, points().size() - 2};
    std::unordered_set<const PathIntersection*> seen;
    for (std::size_t segment = all.first; segment <= all.last; ++segment) {
        const DrawnSegment part = drawnSegment(all, segment);
        const QPointF from = toScene.map(part.start), to = toScene.map(part.end);
        const auto marker = decorator->createSegmentDecorator(context, from, to);
        for (const PathIntersection* const crossing :
             Tova2::drawnCrossings(*marker, crossings, from, to)) {
            if (seen.insert(crossing).second)
                drawn.push_back(*crossing);
        }
    }
    return drawn;
}

} // namespace Tova2
