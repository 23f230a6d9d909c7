#pragma once

#include "diagram.h"

#include <QByteArray>

namespace TovaView {

/// Reads Graphviz plain output. It tells no arrow heads: a connector that stops a head's length
/// before its block gets one. Several graphs come side by side on one page. Throws FileError with
/// the line.
Diagram readPlain(const QString& file, const QByteArray& utf8);

} // namespace TovaView
