#pragma once

#include "diagram.h"

namespace TovaView {

/// Draws a sign for a picture under the block's texts: pictures that a diagram names are not read.
/// The last part of `name` stands below it where the block has no text of its own.
void addPlaceholder(const QString& name, Block& block);

} // namespace TovaView
