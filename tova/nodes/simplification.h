#pragma once

#include "tova/nodes/style/drawstyle.h"

#include <cstdint>

namespace Tova2 {

/// What a quality leaves out of a picture, by its size in the device's own pixels. Nothing changes
/// its place or its extent; what is too small to be told apart is drawn in its mean colour.
struct Simplification {
    double dashes = 0;    ///< dashes and gaps that repeat faster become a solid, fainter line
    double gradients = 0; ///< across smaller figures they become one colour
    double corners = 0;   ///< smaller radii become right angles
    double figures = 0;   ///< smaller ones are drawn as boxes, whatever their outline
    bool hasMarks = true; ///< of crossings

    static const Simplification& of(std::uint8_t quality);
    static const Simplification& none() { return of(2); }
    bool isNone() const { return figures == 0; }

    /// A line of this width.
    Stroke stroke(const Stroke& stroke, double pixels) const;
    /// A figure of this extent.
    Fill fill(const Fill& fill, double pixels) const;
};

/// The mean of both by how much each covers, from 0 for all `a` to 1 for all `b`.
Vetra::Color mixed(const Vetra::Color& a, const Vetra::Color& b, double share);
Vetra::Color faded(const Vetra::Color& color, double share);

} // namespace Tova2
