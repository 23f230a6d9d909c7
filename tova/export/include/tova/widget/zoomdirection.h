#pragma once

namespace Tova2 {

/// Any value but `In` means out.
enum class ZoomDirection : int { Out = 0, In = 1 };

} // namespace Tova2
