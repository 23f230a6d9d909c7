#pragma once

#include "tova/nodes/style/stroke.h"

#include <QPointF>

#include <vector>

namespace Tova2 {

/// What a stroke covers, in its node's coordinates, for whoever draws the same lines again. Filled
/// by the winding rule.
struct StrokeArea {
    /// All that the area of given lines depends on.
    struct Key {
        double width = 0;  ///< in the node's units; 0 where a stroke is not drawn as an area
        double pixels = 0; ///< a unit, how finely curves are cut
        StrokeCapStyle cap{};
        StrokeJoinStyle join{};

        bool operator==(const Key&) const = default;
    };

    Key key;
    std::vector<QPointF> points;
};

} // namespace Tova2
