#pragma once

#include <cstdint>

namespace Tova2 {

/// To what part of a canvas a panel keeps: a corner, the middle of an edge, or none, which leaves
/// it at its position in the view.
enum class CanvasAffinity : std::uint32_t {
    None,
    TopLeft,
    Top,
    TopRight,
    Right,
    BottomRight,
    Bottom,
    BottomLeft,
    Left
};

} // namespace Tova2
