#pragma once

#include <tova/widget/zoomdirection.h>
#include <vemit/listener.h>
#include <vetra/glrect.h>
#include <vetra/size.h>

namespace Tova2 {
class GLCanvas;
}

namespace TovaView {

/// How the window looks at its diagram. A diagram that has been fitted stays so when the window
/// gets another size, until the user zooms or scrolls.
class CanvasView : public Vemit::Listener {
public:
    /// The canvas has to outlive it.
    explicit CanvasView(Tova2::GLCanvas& canvas);
    ~CanvasView();

    /// A diagram that is small is shown at its own size.
    void showAll();
    void fit();
    /// The part of the scene that was seen before; nothing stays fitted.
    void lookAt(const Vetra::GLRect<double>& area);
    void zoomTo(double scale);
    void step(Tova2::ZoomDirection direction);
    void actualSize();

private:
    enum class Fit { None, Whole, AtMostActualSize };

    void setFit(Fit fit);
    void applyFit();

    Tova2::GLCanvas& m_canvas;
    Fit m_fit = Fit::None;
    Vetra::Size<int> m_size; ///< of the canvas when it was fitted
    bool m_isApplying = false;
};

} // namespace TovaView
