#pragma once

#include "tova/nodes/lineenddecoration.h"

namespace Tova2::LineEndings {

// Ready decorations. Each call makes an ordinary node, drawn in the colour and width of the line's
// stroke and `length` scene units along it, with its foremost point at the line's end, and a
// backoff that ends the line inside the node or at its edge. A length that is not above 0 counts
// as 8. Strokes without a line count as solid.

/// A solid head with a notch at its back.
TOVA_EXPORT LineEndDecoration createFilledArrow(const Stroke& line, double length = 8);
/// Two lines that meet at the tip.
TOVA_EXPORT LineEndDecoration createOpenArrow(const Stroke& line, double length = 8);
/// Hollow: `fill` covers what is below.
TOVA_EXPORT LineEndDecoration
createTriangle(const Stroke& line, double length = 8,
               const Vetra::Color& fill = Vetra::Color::fromPacked(0xffffffff));
TOVA_EXPORT LineEndDecoration createDiamond(const Stroke& line, double length = 10);
TOVA_EXPORT LineEndDecoration createDot(const Stroke& line, double length = 5);
/// Across the line; `length` is that of the bar.
TOVA_EXPORT LineEndDecoration createBar(const Stroke& line, double length = 8);
/// Three lines that spread towards the end: "many".
TOVA_EXPORT LineEndDecoration createCrowsFoot(const Stroke& line, double length = 8);

} // namespace Tova2::LineEndings
