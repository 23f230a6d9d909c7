#pragma once

#include "tova/nodes/style/lodcolordepth.h"

#include "vetra/gradient.h"

namespace Tova2 {

/// A screen of few colours for as long as this lives.
struct LowColor {
    LowColor() { LodColorDepth::setSystemColorDepth(15); }
    ~LowColor() { LodColorDepth::setSystemColorDepth(0); }
    LowColor(const LowColor&) = delete;
    LowColor& operator=(const LowColor&) = delete;
};

inline const Vetra::Color red = Vetra::Color::fromPacked(0xffff0000);
inline const Vetra::Color blue = Vetra::Color::fromPacked(0xff0000ff);
inline const Vetra::Color glass = Vetra::Color::fromPacked(0xfeff0000);

inline Vetra::Gradient gradientOf(const Vetra::Color& first, const Vetra::Color& last)
{
    auto gradient = Vetra::Gradient::linear({0, 0}, {10, 0});
    gradient.setStops({{0, first}, {1, last}});
    return gradient;
}

} // namespace Tova2
