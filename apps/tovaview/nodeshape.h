#pragma once

#include "diagram.h"

namespace TovaView {

/// The outlines that DOT's node shape `name` has in `box`: the body first, then its ornaments. A
/// shape that has no outline gives none, an unknown one a box.
std::vector<Figure> nodeShape(const QString& name, const Rect& box, bool rounded);

} // namespace TovaView
