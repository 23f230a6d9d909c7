#pragma once

#include "diagram.h"

namespace TovaView {

/// Lets connectors end at the outlines of their blocks. Right-angled ones that dot leads to a field
/// of a record or a table run on to the middle of the field, through its text.
void trimConnectors(Diagram& diagram);

} // namespace TovaView
