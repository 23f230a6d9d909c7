#pragma once

#include <cstdint>

namespace Tova2 {

/// Where text lies between the left and the right edge of its box; whatever direction it is
/// written in.
enum class HorizontalAlignment : std::uint8_t { Left, Center, Right };

/// Where all lines of a text together lie between the top and the bottom edge of its box.
enum class VerticalAlignment : std::uint8_t { Top, Center, Bottom };

} // namespace Tova2
