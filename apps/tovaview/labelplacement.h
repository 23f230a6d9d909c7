#pragma once

#include "diagram.h"

namespace TovaView {

/// Brings labels that lie away from their connector back to it. Graphviz leaves room for labels
/// before it leads connectors at right angles, which then run elsewhere.
void placeFarLabels(Diagram& diagram);

} // namespace TovaView
