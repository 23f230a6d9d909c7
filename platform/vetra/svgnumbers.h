#pragma once

#include <QStringRef>

namespace Vetra {

/// False when a list of numbers, a path or a style holds one that is beyond a double or too large
/// for the toolkit's stroking and clipping, which crash or hang on it.
bool areNumbersBounded(const QStringRef& text);

} // namespace Vetra
