#pragma once

#include <cstdint>

namespace Tova2 {

/// How much of what is known about a node a change makes stale.
enum class ChangeLevel : std::uint8_t {
    Appearance = 0, ///< other pixels in the same place
    Geometry = 1,   ///< other bounds of this node
    Placement = 2,  ///< other position or transform: this node and all below it
    Presence = 3,   ///< other visibility, opacity or clip: this node and all below it
    Stacking = 4,   ///< another place in the stacking order
    Announced = 5,  ///< other bounds of this node, soon: they are to be asked for when they matter
    Reach = 6,      ///< paints farther or less far around the same geometry
    Children = 7,   ///< has one child more or fewer; only followers are told
    Renumbered = 8, ///< another z-value, in the same place of the stacking order
};

} // namespace Tova2
