// A scene as the handler of its canvases' events.

#include "scene/scenetools.h"
#include "scene/sceneuse.h"

#include "tova/scene/scene.h"

namespace Tova2 {

#define TOVA_BY_STACK(operation, E)                                                                \
    void Scene::operation(E& event)                                                                \
    {                                                                                              \
        SceneUse(*this)->tools().stack().operation(event);                                         \
    }
TOVA_BY_STACK(handleMousePressEvent, MouseEvent)
TOVA_BY_STACK(handleMouseReleaseEvent, MouseEvent)
TOVA_BY_STACK(handleMouseDoubleClickEvent, MouseEvent)
TOVA_BY_STACK(handleWheelEvent, MouseEvent)
TOVA_BY_STACK(handleKeyPressEvent, KeyEvent)
TOVA_BY_STACK(handleKeyReleaseEvent, KeyEvent)
TOVA_BY_STACK(handleEnterCanvasEvent, WidgetEvent)
TOVA_BY_STACK(handleDragLeaveEvent, WidgetEvent)
TOVA_BY_STACK(handleDragEnterEvent, DragEvent)
TOVA_BY_STACK(handleDragEvent, DragEvent)
TOVA_BY_STACK(handleDropEvent, DragEvent)
TOVA_BY_STACK(handleContextMenuEvent, ContextMenuEvent)
TOVA_BY_STACK(handleInputMethodEvent, InputMethodEvent)
TOVA_BY_STACK(handlePanGestureEvent, PanGestureEvent)
TOVA_BY_STACK(handlePinchGestureEvent, PinchGestureEvent)
TOVA_BY_STACK(handleUserDragInitEvent, MouseEvent)
#undef TOVA_BY_STACK

void Scene::handleMouseMoveEvent(MouseEvent& event)
{
    SceneUse(*this)->tools().handleMove(event);
}

void Scene::handleLeaveCanvasEvent(WidgetEvent& event)
{
    SceneUse(*this)->tools().handleLeave(event);
}

void Scene::handleFocusInEvent(FocusEvent& event)
{
    SceneUse(*this)->tools().handleFocusIn(event);
}

void Scene::handleFocusOutEvent(FocusEvent& event)
{
    SceneUse(*this)->tools().handleFocusOut(event);
}

Node Scene::getFocusedNode() const
{
    return d->tools().delivery().focusedNode();
}

void Scene::passMousePressEventToNode(MouseEvent& event)
{
    SceneUse(*this)->tools().delivery().press(event);
}

void Scene::passMouseReleaseEventToNode(MouseEvent& event)
{
    SceneUse(*this)->tools().delivery().release(event);
}

void Scene::passMouseMoveEventToNode(MouseEvent& event)
{
    SceneUse(*this)->tools().delivery().move(event);
}

void Scene::passKeyPressEventToNode(KeyEvent& event)
{
    SceneUse(*this)->tools().delivery().pressKey(event);
}

void Scene::passKeyReleaseEventToNode(KeyEvent& event)
{
    SceneUse(*this)->tools().delivery().releaseKey(event);
}

} // namespace Tova2
