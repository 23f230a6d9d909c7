#pragma once

#include "connectorend.h"

namespace TovaView {

/// Leads a line at right angles from one end to the other: out of each block at the side of its
/// port, around both blocks, and around the obstacles where there is a way. It prefers few corners
/// to a short way. Two points or more, no two neighbours alike, no needless corners.
Points route(const ConnectorEnd& tail, const ConnectorEnd& head,
             const std::vector<Rect>& obstacles);

/// A right-angled course whose ends have moved by that much, bent in its first and last pieces
/// only. Empty when it would run through a block or an obstacle, or into a port from the wrong
/// side. Ends are as the layout has them.
Points stretched(Points course, const ConnectorEnd& tail, const Point& tailBy,
                 const ConnectorEnd& head, const Point& headBy, const std::vector<Rect>& obstacles);

} // namespace TovaView
