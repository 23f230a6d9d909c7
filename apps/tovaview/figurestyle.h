#pragma once

#include "diagram.h"

#include <tova/nodes/style/drawstyle.h>
#include <vetra/shape.h>

#include <optional>

namespace TovaView {

/// How a figure is drawn by a node whose coordinates begin at `origin`.
Tova2::DrawStyle styleOf(const Figure& figure, const Point& origin);
/// A figure's outline in coordinates that begin at `origin`.
Vetra::Shape shapeOf(const Figure& figure, const Point& origin);
/// Set when the outline is an upright rectangle.
std::optional<Rect> rectOf(const Figure& figure);

} // namespace TovaView
