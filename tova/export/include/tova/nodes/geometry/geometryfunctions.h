#pragma once

#include "tova/tova_export.h"

#include "vetra/glpoint.h"

namespace Tova2 {

/// How far around a node a drag takes hold at a view scale: 17 pixels, but 10 to 30 scene units. 30
/// for NaN.
TOVA_EXPORT double getDragRegionMargin(double viewScale);
/// Where the label of a rounded rectangle begins, from its top left corner. A radius that is not
/// finite, or below 10, counts as 10.
TOVA_EXPORT Vetra::GLPoint<double> getLabelTopLeftOffsetInsideARoundedRect(double radius);

} // namespace Tova2
