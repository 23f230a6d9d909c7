#pragma once

#include <cstdint>

namespace Tova2 {

/// Whether a node's own painting, without its children, is kept as pixels between paints. A cached
/// node looks exactly like an uncached one; a cache too large for the library's limits is not made.
enum class CacheType : std::uint8_t {
    NoCache,              ///< painted anew each time
    ItemCoordinateCache,  ///< kept until the node or the scale of its pixels changes
    DeviceCoordinateCache ///< the same, and dropped as well when the node moves by a part of a
                          ///< pixel
};

} // namespace Tova2
