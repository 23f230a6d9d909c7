#pragma once

#include "nodes/cubic.h"

#include <QPainterPath>

namespace Tova2 {

/// What a linear path is drawn as, built segment by segment in the direction of travel.
class LinearOutline {
public:
    explicit LinearOutline(const QPointF& start) : m_main(start) {}

    /// From the current point straight to `next`. Whatever marks crossings on a segment goes here.
    void addSegment(const QPointF& next) { m_main.lineTo(next); }
    /// From the current point, where the corner begins.
    void addCorner(const Cubic& corner, bool isStraight);

    const QPainterPath& main() const { return m_main; }

private:
    QPainterPath m_main;
};

/// Nearly the arc that touches both legs of a corner at the distance `cut` from it. The directions
/// are those of travel, of length 1.
Cubic cornerArc(const QPointF& corner, const QPointF& in, const QPointF& out, double cut);

} // namespace Tova2
