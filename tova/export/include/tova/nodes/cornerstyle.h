#pragma once

#include <cstdint>

namespace Tova2 {

/// How an open path turns from one segment into the next. Rounded and cut corners begin at the
/// corner radius, but at most half the shorter of the two segments, before the corner.
enum class CornerStyle : std::uint8_t {
    Sharp,   ///< as the stroke's join style says
    Rounded, ///< an arc
    Bevel    ///< a straight cut
};

} // namespace Tova2
