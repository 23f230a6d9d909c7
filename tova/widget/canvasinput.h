#pragma once

#include "widget/eventdispatcher.h"
#include "widget/input/dispatchhost.h"

class QWidget;

namespace Tova2 {

class GLCanvas;

/// The side of a canvas that takes input: hands it to the scene, and does by default what no tool
/// wants of the keyboard.
class CanvasInput final : private DispatchHost {
public:
    CanvasInput(GLCanvas& canvas, QWidget& widget);

    /// Whether the toolkit is done with the event. If so, canvas and widget may have gone.
    bool dispatch(QEvent& event);
    EventDispatcher& dispatcher() { return m_dispatcher; }

private:
    Vetra::GLRect<double> autoscrollArea() const override;
    bool scrollBy(const Vetra::GLPoint<double>& step) override;
    void deliver(MouseEvent& event) override { m_dispatcher.deliver(event); }
    bool takesInput() const override;
    std::vector<std::string> dropFormats() const override;
    Vetra::GLMimeData dragData() const override;
    void setDragData(const Vetra::GLMimeData& data) override;

    GLCanvas& m_canvas;
    EventDispatcher m_dispatcher;
};

} // namespace Tova2
