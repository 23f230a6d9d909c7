#pragma once

#include <QPainterPath>

namespace Tova2 {

/// The largest absolute value among the coordinates of elements.
double extentOf(const QPainterPath& path);
/// Whether one can be tested exactly for containing or meeting the other.
bool canCompare(const QPainterPath& a, const QPainterPath& b);
/// Whether their exact union or intersection takes no more than some ten milliseconds.
bool canCombine(const QPainterPath& a, const QPainterPath& b);

} // namespace Tova2
