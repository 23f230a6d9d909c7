#pragma once

#include "tova/layout/canvasaffinity.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/size.h"
#include "widgets/objectwatch.h"

namespace Tova2 {

class GLCanvas;

/// Where on its canvas a panel keeps. It outlives the canvas.
class CanvasSpot {
public:
    /// Null forgets it.
    void setCanvas(GLCanvas* canvas);
    /// Null once its end has begun.
    GLCanvas* canvas() const { return m_canvas.get(); }
    double viewScale() const; ///< 1 without a canvas

    CanvasAffinity affinity = CanvasAffinity::None;
    Vetra::GLPoint<double> offset; ///< in view units, from where the affinity says

    /// Where in the scene a root belongs whose background is `frame`, drawn at `scale`. `position`
    /// is in view units, or without a canvas the answer.
    Vetra::GLPoint<double> rootPosition(const Vetra::GLRect<double>& frame, double scale,
                                        const Vetra::GLPoint<double>& position) const;

private:
    Vetra::GLPoint<double> cornerInView(const Vetra::Size<double>& panel) const;

    Widgets::ObjectWatch<GLCanvas> m_canvas;
};

} // namespace Tova2
