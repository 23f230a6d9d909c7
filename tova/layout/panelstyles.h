#pragma once

#include "tova/layout/autolayoutpanel.h"

namespace Tova2 {

DrawStyle drawStyleOf(AutoLayoutPanel::PanelStyle style);

} // namespace Tova2
