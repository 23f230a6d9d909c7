#pragma once

#include "diagram.h"

namespace TovaView {

/// Where a connector leaves or meets what it connects.
struct ConnectorEnd {
    int block = -1;  ///< that it hangs on; -1 when it ends elsewhere, at a cluster for one
    Point port;      ///< where it touches the block
    Point outward;   ///< away from the block: upright, of length 1
    double gap = 0;  ///< from the port to the end of the line, where the head goes
    double room = 0; ///< that the head takes of the line
    std::optional<Rect> frame; ///< of the block

    Point lineEnd() const { return port + outward * gap; }
    ConnectorEnd moved(const Point& by) const;
};

/// The way of a connector's line from its tail to its head; curves in short straight pieces. Lines
/// that run beside the first one are left out.
Points courseOf(const Connector& connector);
bool isRightAngled(const Points& course);

/// How a connector ends as the layout led it. `course` has two points or more.
ConnectorEnd tailEndOf(const Diagram& diagram, const Connector& connector, const Points& course);
ConnectorEnd headEndOf(const Diagram& diagram, const Connector& connector, const Points& course);

} // namespace TovaView
