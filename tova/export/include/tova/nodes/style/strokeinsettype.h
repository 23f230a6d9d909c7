#pragma once

namespace Tova2 {

/// Where a trace lies relative to the node's outline.
enum class StrokeInsetType { Inner, Center, Outer };

} // namespace Tova2
