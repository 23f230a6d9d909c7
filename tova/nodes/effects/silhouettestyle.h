#pragma once

#include "tova/nodes/style/drawstyle.h"

namespace Tova2 {

/// The style that shows all of what `style` shows, in one colour. Lines of one pixel become
/// `cosmeticWidth` wide.
DrawStyle silhouetteStyle(const DrawStyle& style, const Vetra::Color& color, double cosmeticWidth);
/// Whether nothing shines through where a node of this style paints.
bool isPaintedOpaquely(const DrawStyle& style);
bool isFilled(const Fill& fill);
bool isStroked(const Stroke& stroke);

} // namespace Tova2
