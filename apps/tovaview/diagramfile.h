#pragma once

#include "diagram.h"

#include <QStringList>

namespace TovaView {

/// Reads a diagram of any kind that we know, by the ending of its name. `notes` gets a line for
/// each thing that the user should know of. Throws FileError.
Diagram readDiagram(const QString& path, QStringList& notes);

} // namespace TovaView
