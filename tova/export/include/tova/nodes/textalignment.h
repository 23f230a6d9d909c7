#pragma once

#include <cstdint>

namespace Tova2 {

/// Where text lies between the left and the right edge of its box, whatever direction it is
/// written in; which way the rows of a panel grow. The values are fixed.
enum class HorizontalAlignment : std::uint8_t { Left, Middle, Right };

/// Where all lines of a text together lie between the top and the bottom edge of its box; which way
/// the rows of a panel follow each other. The values are fixed.
enum class VerticalAlignment : std::uint8_t { Top, Middle, Bottom };

} // namespace Tova2
