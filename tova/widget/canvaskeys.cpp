#include "widget/canvaskeys.h"

#include "tova/widget/glcanvas.h"

#include <QKeyEvent>

namespace Tova2 {

bool pressKey(GLCanvas& canvas, const QKeyEvent& event)
{
    // Shift is part of a plus on many keyboards; anything else is a host's shortcut.
    if (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return false;
    switch (event.key()) {
    case Qt::Key_Left:
        canvas.requestScrollInSteps(-1, 0);
        return true;
    case Qt::Key_Right:
        canvas.requestScrollInSteps(1, 0);
        return true;
    case Qt::Key_Up:
        canvas.requestScrollInSteps(0, -1);
        return true;
    case Qt::Key_Down:
        canvas.requestScrollInSteps(0, 1);
        return true;
    case Qt::Key_PageUp:
        canvas.requestScrollInPages(0, -1);
        return true;
    case Qt::Key_PageDown:
        canvas.requestScrollInPages(0, 1);
        return true;
    case Qt::Key_Plus:
        canvas.zoomByStep(ZoomDirection::In, ZoomReason::Source::Keyboard);
        return true;
    case Qt::Key_Minus:
        canvas.zoomByStep(ZoomDirection::Out, ZoomReason::Source::Keyboard);
        return true;
    case Qt::Key_0:
        canvas.zoomToActualSize();
        return true;
    case Qt::Key_F:
        canvas.zoomToSceneRect();
        return true;
    default:
        return false;
    }
}

} // namespace Tova2
