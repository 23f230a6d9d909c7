#pragma once

#include "connectorend.h"

namespace TovaView {

/// What a line had better keep clear of.
struct Surroundings {
    std::vector<Rect> obstacles;
    std::vector<Points> courses; ///< upright ones of other lines: crossed if need be, not followed
};

/// Leads a line at right angles from one end to the other: out of each block at the side of its
/// port, around both blocks, and clear of the surroundings where there is a way. It prefers few
/// corners to a short way. Two points or more, no two neighbours alike, no needless corners.
Points route(const ConnectorEnd& tail, const ConnectorEnd& head, const Surroundings& surroundings);

/// A right-angled course whose ends have moved by that much, bent in its first and last pieces
/// only. Empty when it would run through a block or an obstacle, or into a port from the wrong
/// side. Ends are as the layout has them.
Points stretched(Points course, const ConnectorEnd& tail, const Point& tailBy,
                 const ConnectorEnd& head, const Point& headBy, const Surroundings& surroundings);

} // namespace TovaView
