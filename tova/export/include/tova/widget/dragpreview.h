#pragma once

#include "tova/tova_export.h"
#include "vetra/glpoint.h"
#include "vetra/pixmap.h"

#include <vector>

namespace Tova2 {

class GLCanvas;
class Node;

/// What hangs on the pointer during a drag.
struct TOVA_EXPORT DragPreview {
    Vetra::Pixmap pixmap;
    double pixelsPerViewPixel = 1;
    /// Of the pointer, in view pixels from the top left of the pixmap.
    Vetra::GLPoint<double> hotSpot{};

    /// The nodes with their children, topmost first as queries answer, translucent and as large as
    /// on the canvas, but no longer than 400 view pixels; `grabbedAt` is the scene point that stays
    /// under the pointer. A null pixmap when nothing of them shows.
    static DragPreview of(const GLCanvas& canvas, const std::vector<Node>& nodes,
                          const Vetra::GLPoint<double>& grabbedAt);
};

} // namespace Tova2
