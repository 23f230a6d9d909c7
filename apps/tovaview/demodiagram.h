#pragma once

#include <QString>

namespace TovaView {

/// Stands for the diagram that is built into the program, where a file is to be read.
QString demoDiagram();
bool isDemoDiagram(const QString& file);

} // namespace TovaView
