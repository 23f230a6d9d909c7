#pragma once

#include "tova/events/eventcanvas.h"

namespace Tova2 {

/// A position in the canvas's pixels as a scene position; as it is when there is no canvas.
template <class T>
Vetra::GLPoint<double> toScene(const EventCanvas* canvas, const Vetra::GLPoint<T>& point)
{
    const Vetra::GLPoint<double> view{static_cast<double>(point.x), static_cast<double>(point.y)};
    return canvas ? canvas->viewPointToScenePoint(view) : view;
}

} // namespace Tova2
