#include "nodes/crossings/segmentcrossings.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace Tova2 {

namespace {

bool hasRoom(const PathIntersection& crossing, const PathXSegmentDecorator::Clearance& required)
{
    return std::ranges::equal(crossing.clearance, required, std::greater<>());
}

/// The ends may lie closer than those of the whole segment, which the record knows: where a corner
/// is cut off, or the line gives way to a decoration.
bool hasRoomBetween(const PathIntersection& crossing,
                    const PathXSegmentDecorator::Clearance& required, const QPointF& from,
                    const QPointF& to)
{
    const auto [left, right] = std::minmax({from.x(), to.x()});
    const auto [top, bottom] = std::minmax({from.y(), to.y()});
    if (from.x() == to.x())
        return crossing.y - top > required[0] && bottom - crossing.y > required[2];
    return crossing.x - left > required[1] && right - crossing.x > required[3];
}

/// A path that crosses itself has two records of one place.
bool isSamePlace(const PathIntersection* a, const PathIntersection* b)
{
    return a->x == b->x && a->y == b->y && a->other == b->other;
}

} // namespace

SegmentCrossings::SegmentCrossings(std::span<const PathIntersection> crossings)
    : m_crossings(crossings), m_byX(crossings.size()), m_byY(crossings.size())
{
    std::iota(m_byX.begin(), m_byX.end(), 0u);
    m_byY = m_byX;
    std::ranges::stable_sort(
        m_byX, {}, [&](std::uint32_t i) { return std::tuple(crossings[i].x, crossings[i].y); });
    std::ranges::stable_sort(
        m_byY, {}, [&](std::uint32_t i) { return std::tuple(crossings[i].y, crossings[i].x); });
}

std::vector<const PathIntersection*> SegmentCrossings::on(const QPointF& from,
                                                          const QPointF& to) const
{
    if (from.y() == to.y())
        return find(m_byY, &PathIntersection::y, from.y(), &PathIntersection::x, from.x(), to.x());
    if (from.x() == to.x())
        return find(m_byX, &PathIntersection::x, from.x(), &PathIntersection::y, from.y(), to.y());
    return {};
}

std::vector<const PathIntersection*>
SegmentCrossings::find(const std::vector<std::uint32_t>& order, double PathIntersection::*level,
                       double at, double PathIntersection::*place, double from, double to) const
{
    const auto keyOf = [&](std::uint32_t i) {
        return std::tuple(m_crossings[i].*level, m_crossings[i].*place);
    };
    const auto [low, high] = std::minmax(from, to);
    auto found = std::ranges::upper_bound(order, std::tuple(at, low), {}, keyOf);
    std::vector<const PathIntersection*> result;
    for (; found != order.end() && keyOf(*found) < std::tuple(at, high); ++found)
        result.push_back(&m_crossings[*found]);
    if (to < from)
        std::ranges::reverse(result);
    return result;
}

std::vector<const PathIntersection*> drawnCrossings(const PathXSegmentDecorator& decorator,
                                                    const SegmentCrossings& crossings,
                                                    const QPointF& from, const QPointF& to)
{
    auto drawn = crossings.on(from, to);
    std::erase_if(drawn, [&](const PathIntersection* crossing) {
        const auto required = decorator.requiredBy(*crossing);
        return !hasRoom(*crossing, required) || !hasRoomBetween(*crossing, required, from, to);
    });
    drawn.erase(std::unique(drawn.begin(), drawn.end(), isSamePlace), drawn.end());
    return drawn;
}

void decorateSegment(const PathIntersectionsDecorator& decorator, const CrossingContext& context,
                     const SegmentCrossings& crossings, const QPointF& from, const QPointF& to)
{
    if (crossings.isEmpty())
        return;
    const auto segment = decorator.createSegmentDecorator(context, from, to);
    for (const PathIntersection* const crossing : drawnCrossings(*segment, crossings, from, to))
        segment->decorate(*crossing);
}

} // namespace Tova2
