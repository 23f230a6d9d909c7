#pragma once

#include "vetra/glrect.h"

#include <cstdint>

namespace Tova2 {

/// What a node may know of the paint it takes part in. It never learns what device it is drawn on.
struct PaintOptions {
    double viewScale = 1.0;   ///< painter units a scene unit, several pixels each on dense screens
    std::uint8_t quality = 2; ///< 0 coarsest, 2 full; by what the device's own pixels can show
    double smallestText = 0;  ///< in pixels an em; smaller text is only hinted at
    bool offScreen = false;   ///< an image, a picture or a printer instead of a canvas
    Vetra::GLRect<double> exposed{}; ///< the part to paint, in scene coordinates
};

} // namespace Tova2
