#pragma once

#include "widget/eventdispatcher.h"
#include "widget/input/dispatchhost.h"

#include <QObject>

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
    /// Brings up to date what is hovered, with the next turn of the event loop.
    void viewChanged();

private:
    Vetra::GLRect<double> autoscrollArea() const override;
    bool scrollBy(const Vetra::GLPoint<double>& step) override;
    void deliver(MouseEvent& event) override { m_dispatcher.deliver(event); }
    bool takesInput() const override;
    std::vector<std::string> dropFormats() const override;
    Vetra::GLMimeData dragData() const override;
    void setDragData(const Vetra::GLMimeData& data) override;

    void hoverAnew();

    GLCanvas& m_canvas;
    QObject m_turn; ///< receives what waits for the next turn of the event loop
    bool m_isHoverDue = false;
    Vetra::GLPoint<double> m_scrollRest; ///< of autoscrolling, in view pixels
    EventDispatcher m_dispatcher;
};

} // namespace Tova2
