#pragma once

#include "label.h"

namespace TovaView {

/// Draws a record's fields into `box`: separating lines and texts. Text that does not follow the
/// notation is drawn as one field.
Drawing recordFields(const QString& label, const Rect& box, const LineStyle& line,
                     const TextStyle& style);

} // namespace TovaView
