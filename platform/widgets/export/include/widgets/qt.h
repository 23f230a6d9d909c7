#pragma once

/// The way from the widgets here to the toolkit's: the only public header that names its types.

#include "widgets/glwidget2.h"

#include <QWidget>

namespace Widgets {

/// For a host to place it in a window of its own. The object stays the owner; null when the toolkit
/// has deleted it.
WIDGETS_EXPORT QWidget* toQt(const GLWidget2& widget);

} // namespace Widgets
