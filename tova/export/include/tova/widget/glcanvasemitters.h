#pragma once

#include "tova/widget/orientation.h"
#include "tova/widget/zoomreason.h"
#include "vemit/emitter.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"

namespace Widgets {
class GLLayout2;
class GLObject;
} // namespace Widgets

namespace Tova2 {

class GLCanvas;

/// What a canvas tells of itself. Listeners may do anything, to the canvas too.
struct GLCanvasEmitters {
    /// The scale, after it has changed and before it is painted.
    Vemit::Emitter<double, ZoomReason> scaleChange;
    /// The scene point now at the view's top left. Sent once for each change of what part of the
    /// scene is shown, zooming and resizing included, after `scaleChange` and before it is painted:
    /// what a listener places by the view moves with it.
    Vemit::Emitter<Vetra::GLPoint<double>> viewChange;
    /// Where a scroll bar is now, in view pixels; empty when it has gone.
    Vemit::Emitter<Vetra::GLRect<int>, Orientation> scrollbarGeometryChange;
    /// The steps asked for by `requestScrollInSteps`, before they are made.
    Vemit::Emitter<int, int> scrollRequest;
    /// The view has another size: once for each registered key.
    Vemit::Emitter<unsigned> resized;
    /// Where the pointer is, in view pixels.
    Vemit::Emitter<Vetra::GLPoint<int>> pointerMove;
    /// The user has zoomed by this factor, about this view point.
    Vemit::Emitter<Vetra::GLPoint<int>, double> userZoom;
    /// Another layout of child widgets, or null.
    Vemit::Emitter<Widgets::GLLayout2*> layoutChange;
    /// The busy animation appears at this scene point.
    Vemit::Emitter<Vetra::GLPoint<double>> busyAnimation;
    /// Another scene is the base, or none; the canvas still lives.
    Vemit::Emitter<> sceneChange;
    /// Another canvas has come into this one's place, as in a window that was built anew; its
    /// emitters, for whoever goes on listening there, and its parent, or null. The host says so
    /// (`GLCanvas::announceReplacement`).
    Vemit::Emitter<GLCanvas*, GLCanvasEmitters*, Widgets::GLObject*> canvasReplacement;
    /// Whether the user may move the view now: true, and false for a listener that sets it. Asked
    /// before each move by wheel, fingers, keys, scroll bars or a drag.
    Vemit::Emitter<bool&> userMoveQuery;
};

} // namespace Tova2
