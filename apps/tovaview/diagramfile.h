#pragma once

#include "diagram.h"
#include "layoutwish.h"

#include <QStringList>

namespace TovaView {

/// Reads a diagram of any kind that we know, by the ending of its name. `notes` gets a line for
/// each thing that the user should know of. Touches nothing that belongs to a thread. Throws
/// FileError, and LayoutCancelled.
Diagram readDiagram(const QString& path, QStringList& notes, const LayoutWish& wish = {});

} // namespace TovaView
