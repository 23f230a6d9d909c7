#include "nodes/crossings/crossingmarks.h"
#include "nodes/crossings/markedpath.h"
#include "nodes/linearpathnodeimpl.h"
#include "nodes/scenelink.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace Tova2 {

namespace {

constexpr double kUnknown = -1;

double scaleOf(const QTransform& transform)
{
    return std::sqrt(std::abs(transform.determinant()));
}

} // namespace

struct LinearPathNodeImpl::Crossings {
    std::vector<PathIntersection> records;
    double lineWidth;                     ///< as those that cross know it
    double widestCrossed = kUnknown;      ///< of them
    std::unique_ptr<CrossingMarks> marks; ///< made when they are drawn first
};

LinearPathNodeImpl::LinearPathNodeImpl() = default;
LinearPathNodeImpl::~LinearPathNodeImpl() = default;

std::span<const PathIntersection> LinearPathNodeImpl::crossings() const
{
    std::vector<PathIntersection> found;
    if (sceneLink() && sceneLink()->takeCrossings(*this, found))
        keep(std::move(found));
    return m_crossings ? std::span<const PathIntersection>(m_crossings->records)
                       : std::span<const PathIntersection>();
}

void LinearPathNodeImpl::setCrossings(std::vector<PathIntersection>&& crossings)
{
    keep(std::move(crossings));
}

void LinearPathNodeImpl::keep(std::vector<PathIntersection>&& crossings) const
{
    if (crossings.empty())
        return m_crossings.reset();
    if (!m_crossings)
        m_crossings = std::make_unique<Crossings>();
    auto& [records, width, widestCrossed, marks] = *m_crossings;
    marks.reset();
    width = lineWidth();
    widestCrossed = kUnknown;
    // Where it fits it goes to where the former list was. What lists that changed places leave
    // behind would be given back to the system all at once by whoever frees the last: for 10 ms.
    if (crossings.size() <= records.capacity() && records.capacity() <= 2 * crossings.size()) {
        records.assign(std::move_iterator(crossings.begin()), std::move_iterator(crossings.end()));
    } else {
        crossings.shrink_to_fit();
        records = std::move(crossings);
    }
}

void LinearPathNodeImpl::dropCrossingMarks()
{
    if (!m_crossings)
        return;
    m_crossings->marks.reset();
    m_crossings->widestCrossed = kUnknown;
}

void LinearPathNodeImpl::dropCaches(ChangeLevel level)
{
    PathNodeImpl::dropCaches(level);
    if (level == ChangeLevel::Geometry)
        dropCrossingMarks();
}

double LinearPathNodeImpl::lineWidth() const
{
    const Stroke& stroke = drawStyle().stroke();
    if (stroke.isNoStroke())
        return 0;
    return stroke.logicalWidth() > 0 ? stroke.logicalWidth() * scaleOf(sceneTransform()) : 1.0;
}

double LinearPathNodeImpl::lineWidthOf(const WeakRef& path)
{
    NodeImpl* const node = path.getImpl();
    const LinearPathNodeImpl* const linear = node ? node->asLinearPath() : nullptr;
    return linear ? linear->lineWidth() : 0.0;
}

bool LinearPathNodeImpl::takeLineWidthChange()
{
    return !crossings().empty() &&
           std::exchange(m_crossings->lineWidth, lineWidth()) != lineWidth();
}

// The hop reaches farthest: its room, the lines' widths in it, and half of its own beyond.
double LinearPathNodeImpl::markReach() const
{
    constexpr double kHopRoom = 3.5;
    if (crossings().empty())
        return 0;
    double& widest = m_crossings->widestCrossed;
    if (widest == kUnknown) {
        for (const PathIntersection& crossing : m_crossings->records)
            widest = std::max(widest, lineWidthOf(crossing.other));
    }
    return kHopRoom + 2 * lineWidth() + widest;
}

std::optional<DrawnPart> LinearPathNodeImpl::drawnPart() const
{
    return {};
}

LinearPathNodeImpl::DrawnSegment LinearPathNodeImpl::drawnSegment(const std::optional<DrawnPart>&,
                                                                  std::size_t segment) const
{
    const std::size_t count = points().size();
    return {points()[segment % count], points()[(segment + 1) % count], {}, false};
}

bool LinearPathNodeImpl::hasCrossings() const
{
    return !crossings().empty() && sceneLink() && sceneLink()->crossingDecorator();
}

CrossingMarks* LinearPathNodeImpl::crossingMarks(double viewScale) const
{
    if (!hasCrossings())
        return nullptr;
    auto& marks = m_crossings->marks;
    if (!marks || !marks->isFor(sceneTransform()))
        marks = std::make_unique<CrossingMarks>(*this, m_crossings->records);
    marks->setScale(viewScale);
    return marks->count() > 0 ? marks.get() : nullptr;
}

void LinearPathNodeImpl::appendMarked(const Range& range, CrossingMarks& marks,
                                      MarkedPath& drawn) const
{
    const auto whole = drawnPart();
    drawn.begin(drawnSegment(whole, range.first % segmentCount()).start);
    for (std::size_t i = range.first; i <= range.last; ++i) {
        const std::size_t segment = i % segmentCount();
        const std::size_t index = marks.indexFrom(segment);
        const DrawnSegment part = drawnSegment(whole, segment);
        if (index < marks.count() && marks.segment(index) == segment)
            drawn.add(marks.at(index, drawn.seen));
        QPainterPath& line = drawn.lines.back().path;
        line.lineTo(part.end);
        if (!part.corner || i == range.last)
            continue;
        const auto& curve = part.corner->points;
        if (part.isCornerStraight)
            line.lineTo(curve[3]);
        else
            line.cubicTo(curve[1], curve[2], curve[3]);
    }
}

std::vector<PathIntersection> LinearPathNodeImpl::drawnCrossings() const
{
    std::vector<PathIntersection> drawn;
    if (!hasCrossings() || points().size() < 2)
        return drawn;
    const auto* const decorator = sceneLink()->crossingDecorator();
    const QTransform toScene = sceneTransform();
    const SegmentCrossings crossings(m_crossings->records);
    CrossingOutline outline;
    const CrossingContext context{outline, lineWidth(), 1.0, lineWidthOf};
    const auto whole = drawnPart();
    std::unordered_set<const PathIntersection*> seen;
    for (std::size_t segment = 0; segment + 1 < points().size(); ++segment) {
        const DrawnSegment part = drawnSegment(whole, segment);
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
