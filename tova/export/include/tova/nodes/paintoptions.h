#pragma once

#include "vetra/glrect.h"

#include <cstdint>

namespace Tova2 {

/// What a node may know of the paint it takes part in. It never learns what device it is drawn on.
struct PaintOptions {
    /// The zoom that somebody asked for: 1 shows a point of the scene as a pixel of a screen with a
    /// pixel ratio of 1, and as a point on paper. Finer pixels and dots do not change it.
    double viewScale = 1.0;
    std::uint8_t quality = 2;        ///< 0 coarsest, 2 full; by the zoom
    double smallestText = 0;         ///< an em at the zoom; smaller text is only hinted at
    bool offScreen = false;          ///< an image, a picture or a printer instead of a canvas
    Vetra::GLRect<double> exposed{}; ///< the part to paint, in scene coordinates
};

} // namespace Tova2
