#pragma once

#include "diagramscene.h"

namespace TovaView {

/// Finds and counts the crossings of all straight connectors, and leaves those of the shown ones
/// marked in the scene. Returns the milliseconds of the pass over all.
double findCrossings(DiagramScene& diagram);

} // namespace TovaView
