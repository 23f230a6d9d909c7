#pragma once

#include "tova/nodes/style/background.h"
#include "tova/nodes/style/drawstyle.h"
#include "vetra/color.h"
#include "vetra/stringid.h"

#include <string>
#include <vector>

namespace Tova2 {

/// What a scene only keeps for others to read.
struct SceneSettings {
    std::vector<DrawStyle> creationStyles;
    Background background;
    Vetra::StringID lodStrategyKey; ///< empty: the level-of-detail manager's default
    int minRenderFontSize = 5;
    bool debugRepaintRegion = false;
    Vetra::Color debugRepaintRegionColor{0, 1.0, 0, 0.5};
    bool debugTextEditArea = false;
    bool trackingPerformance = false;
};

} // namespace Tova2
