#pragma once

#include <QWidget>

namespace Tova2 {

class GLCanvasPrivate;

/// The toolkit's widget under a canvas. It outlives its canvas by a turn of the event loop, or ends
/// before it with the window it was put into.
class ToolkitCanvas final : public QWidget {
public:
    ToolkitCanvas();

    /// Null once the canvas has ended.
    void setCanvas(GLCanvasPrivate* canvas) { m_canvas = canvas; }
    /// Whether the focus came by the keyboard, and so has to be seen.
    bool showsFocus() const { return m_showsFocus; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    GLCanvasPrivate* m_canvas = nullptr;
    bool m_showsFocus = false;
};

} // namespace Tova2
