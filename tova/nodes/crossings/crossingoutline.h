#pragma once

#include "tova/nodes/weakref.h"

#include <QPainterPath>
#include <QPointF>

#include <vector>

namespace Tova2 {

/// A mark along a line, in the direction of travel.
struct PinMark {
    WeakRef crossed; ///< the path that passes there
    QPointF start;
    QPointF end;
    QPointF cutStart, cutEnd; ///< of the line, within the mark
};

/// The outline of a path as far as it is built.
struct CrossingOutline {
    QPainterPath main;
    QPainterPath thinHops; ///< arcs of lines so thin that they are stroked by themselves
    std::vector<PinMark> pins;
};

} // namespace Tova2
