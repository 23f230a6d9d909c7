#pragma once

#include <cstdint>

namespace Tova2 {

/// The numbers are the toolkit's.
enum class Orientation : std::uint32_t { Horizontal = 1, Vertical = 2 };

} // namespace Tova2
