#pragma once

#include "nodes/crossings/pathxsegmentdecorator.h"

#include <optional>

namespace Tova2 {

/// The vertical line hops in an arc, always to the right; the horizontal one is broken where the
/// arc passes. Arcs that would meet become one, and so do gaps.
class LineHopXSegmentDecorator final : public PathXSegmentDecorator {
public:
    using PathXSegmentDecorator::PathXSegmentDecorator;

    bool decorate(const PathIntersection& crossing) override;
    bool isPinStyle() const override { return false; }
    /// One of the sides across keeps no room.
    Clearance baseClearance(bool vertical) const override;
    Clearance clearance(double widthA, double widthB, bool vertical) const override;

private:
    struct Drawn {
        double x, y;
        Clearance clearance;
    };

    void breakLine(const PathIntersection& crossing);
    void hop(const PathIntersection& crossing);
    bool meetsLast(const Drawn& current) const;
    QPointF mergeWithLast(QPainterPath& curves, const Drawn& current) const;

    std::optional<Drawn> m_last;
    std::optional<double> m_gapEnd; ///< on a horizontal line
};

} // namespace Tova2
