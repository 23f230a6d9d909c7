#pragma once

#include "tova/widget/zoomdirection.h"

namespace Tova2 {

/// The scale that a step of zooming leads to from `scale`, which is positive. `preferred` is taken
/// where it lies on the way to the next of the fixed steps; zero for none.
double nextZoomStep(double scale, ZoomDirection direction, double preferred);

} // namespace Tova2
