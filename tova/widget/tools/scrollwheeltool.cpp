#include "tova/widget/scrollwheeltool.h"

#include "tova/events/mouseevent.h"
#include "tova/widget/glcanvas.h"

namespace Tova2 {

namespace {

/// Of `requestScrollInSteps`. Away from the user shows what lies above, or to the left.
int scrollSteps(const MouseEvent& event)
{
    return -(event.asGLMouseEvent2().delta / 7);
}

} // namespace

Vetra::StringID ScrollWheelTool::staticGetDefaultRole()
{
    static const Vetra::StringID role("ScrollWheelTool");
    return role;
}

void ScrollWheelTool::cancel(ECancelReason, const Tool*)
{
    becomeIdle();
}

void ScrollWheelTool::handleWheelEvent(MouseEvent& event)
{
    GLCanvas* const canvas = GLCanvas::of(event);
    if (!canvas)
        return;
    using Vetra::Modifier;
    const Vetra::Modifiers held = event.asGLMouseEvent2().modifiers;
    const bool zoomsPrimarily = shouldZoomPrimarily();
    if (held == (zoomsPrimarily ? Modifier::None : Modifier::Ctrl))
        doZoom(event, canvas);
    else if (held == (zoomsPrimarily ? Modifier::Ctrl : Modifier::None))
        doScrollVertical(event, canvas);
    else if (held == Modifier::Shift)
        doScrollHorizontal(event, canvas);
    else
        return;
    event.consume();
}

void ScrollWheelTool::doScrollHorizontal(MouseEvent& event, GLCanvas* canvas)
{
    canvas->requestScrollInSteps(scrollSteps(event), 0);
}

void ScrollWheelTool::doScrollVertical(MouseEvent& event, GLCanvas* canvas)
{
    canvas->requestScrollInSteps(0, scrollSteps(event));
}

void ScrollWheelTool::doZoom(MouseEvent& event, GLCanvas* canvas)
{
    const int rotation = event.asGLMouseEvent2().delta;
    if (rotation == 0) // turned sideways only
        return;
    const auto direction = rotation > 0 ? ZoomDirection::In : ZoomDirection::Out;
    canvas->setScaleAroundScenePointWithReason(canvas->getNextZoomScale(direction),
                                               event.scenePos(), ZoomReason::Source::Wheel);
}

} // namespace Tova2
