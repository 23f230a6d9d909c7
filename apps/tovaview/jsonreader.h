#pragma once

#include "diagram.h"

#include <QByteArray>
#include <QHash>

namespace TovaView {

/// Reads what `dot -Tjson` prints: one object a graph. Several graphs come side by side on one
/// page; `graphCount` says how many there were. Throws FileError naming `file`.
Diagram readJson(const QString& file, const QByteArray& json,
                 const QHash<QString, QString>& families, int* graphCount = nullptr);

} // namespace TovaView
