#pragma once

#include "tova/nodes/lineenddecoration.h"

#include <optional>

/// Ready decorations. Each call makes an ordinary node, drawn in the colour and width of the line's
/// stroke and `length` scene units along it, with its foremost point at the line's end, and a
/// backoff that ends the line inside the node or at its edge. Without a length above 0 it is 8
/// (diamonds 10, boxes 6, dots 5), and grows with strokes wider than 2; an outline that needs more
/// has more. Strokes without a line count as solid. One of one pixel at every zoom is drawn round
/// the decoration, half a pixel beyond it.
///
/// The node has the stroke and colour that it was made with: a line that gets another one gets
/// another decoration as well.
///
/// Where `fill` may be left out, the node is solid in the line's colour without one; with one, the
/// line's stroke runs round it, and `fill` covers what is below.
namespace Tova2::LineEndings {

/// A solid head with a notch at its back.
TOVA_EXPORT LineEndDecoration createFilledArrow(const Stroke& line, double length = 0);
/// Two lines that meet at the tip.
TOVA_EXPORT LineEndDecoration createOpenArrow(const Stroke& line, double length = 0);
/// Hollow unless told otherwise.
TOVA_EXPORT LineEndDecoration
createTriangle(const Stroke& line, double length = 0,
               const std::optional<Vetra::Color>& fill = Vetra::Color::fromPacked(0xffffffff));
/// Its base lies at the line's end.
TOVA_EXPORT LineEndDecoration createInvertedTriangle(const Stroke& line, double length = 0,
                                                     const std::optional<Vetra::Color>& fill = {});
/// A square on its corner.
TOVA_EXPORT LineEndDecoration createDiamond(const Stroke& line, double length = 0,
                                            const std::optional<Vetra::Color>& fill = {});
/// A disc.
TOVA_EXPORT LineEndDecoration createDot(const Stroke& line, double length = 0,
                                        const std::optional<Vetra::Color>& fill = {});
/// A square with a side across the line.
TOVA_EXPORT LineEndDecoration createBox(const Stroke& line, double length = 0,
                                        const std::optional<Vetra::Color>& fill = {});
/// Across the line; `length` is that of the bar.
TOVA_EXPORT LineEndDecoration createBar(const Stroke& line, double length = 0);
/// Three lines that spread towards the end: "many".
TOVA_EXPORT LineEndDecoration createCrowsFoot(const Stroke& line, double length = 0);

} // namespace Tova2::LineEndings
