#pragma once

#include "nodes/crossings/pathintersectionsdecorator.h"

#include <cstdint>
#include <span>
#include <vector>

namespace Tova2 {

/// Finds those crossings of one path that lie on one of its segments, without looking at all of
/// them for each.
class SegmentCrossings {
public:
    /// Refers to the records, which must outlive it.
    explicit SegmentCrossings(std::span<const PathIntersection> crossings);

    bool isEmpty() const { return m_crossings.empty(); }
    std::size_t count() const { return m_crossings.size(); }
    /// Strictly between the ends, in the direction of travel; none on a slanted segment. Exact
    /// comparison: the ends have to be mapped to the scene as they were for the crossings.
    std::vector<const PathIntersection*> on(const QPointF& from, const QPointF& to) const;

private:
    std::vector<const PathIntersection*> find(const std::vector<std::uint32_t>& order,
                                              double PathIntersection::*level, double at,
                                              double PathIntersection::*place, double from,
                                              double to) const;

    std::span<const PathIntersection> m_crossings;
    std::vector<std::uint32_t> m_byX; ///< then by y
    std::vector<std::uint32_t> m_byY; ///< then by x
};

/// Of `SegmentCrossings::on` those that the decorator draws: all four free distances are greater
/// than what it needs, and so are those to `from` and `to`. A place is drawn once.
std::vector<const PathIntersection*> drawnCrossings(const PathXSegmentDecorator& decorator,
                                                    const SegmentCrossings& crossings,
                                                    const QPointF& from, const QPointF& to);

/// Draws the crossings on the segment into the context's outline, which ends at `from`; the line on
/// to `to` is left to the caller.
void decorateSegment(const PathIntersectionsDecorator& decorator, const CrossingContext& context,
                     const SegmentCrossings& crossings, const QPointF& from, const QPointF& to);

} // namespace Tova2
