// A scene as the handler of its canvases' events.

#include "scene/scenetools.h"
#include "scene/sceneuse.h"

#include "tova/scene/scene.h"

namespace Tova2 {

namespace {

template <class E>
void handByStack(Scene& scene, void (EventHandler::*operation)(E&), E& event)
{
    const SceneUse use(scene);
    (use->tools().stack().*operation)(event);
}

} // namespace

void Scene::handleMousePressEvent(MouseEvent& event)
{
    handByStack(*this, &EventHandler::handleMousePressEvent, event);
}

void Scene::handleMouseReleaseEvent(MouseEvent& event)
{
    handByStack(*this, &EventHandler::handleMouseReleaseEvent, event);
}

void Scene::handleMouseDoubleClickEvent(MouseEvent& event)
{
    handByStack(*this, &EventHandler::handleMouseDoubleClickEvent, event);
}

void Scene::handleWheelEvent(MouseEvent& event)
{
    handByStack(*this, &EventHandler::handleWheelEvent, event);
}

void Scene::handleKeyPressEvent(KeyEvent& event)
{
    handByStack(*this, &EventHandler::handleKeyPressEvent, event);
}

void Scene::handleKeyReleaseEvent(KeyEvent& event)
{
    handByStack(*this, &EventHandler::handleKeyReleaseEvent, event);
}

void Scene::handleEnterCanvasEvent(WidgetEvent& event)
{
    handByStack(*this, &EventHandler::handleEnterCanvasEvent, event);
}

void Scene::handleDragLeaveEvent(WidgetEvent& event)
{
    handByStack(*this, &EventHandler::handleDragLeaveEvent, event);
}

void Scene::handleDragEnterEvent(DragEvent& event)
{
    handByStack(*this, &EventHandler::handleDragEnterEvent, event);
}

void Scene::handleDragEvent(DragEvent& event)
{
    handByStack(*this, &EventHandler::handleDragEvent, event);
}

void Scene::handleDropEvent(DragEvent& event)
{
    handByStack(*this, &EventHandler::handleDropEvent, event);
}

void Scene::handleContextMenuEvent(ContextMenuEvent& event)
{
    handByStack(*this, &EventHandler::handleContextMenuEvent, event);
}

void Scene::handleInputMethodEvent(InputMethodEvent& event)
{
    handByStack(*this, &EventHandler::handleInputMethodEvent, event);
}

void Scene::handlePanGestureEvent(PanGestureEvent& event)
{
    handByStack(*this, &EventHandler::handlePanGestureEvent, event);
}

void Scene::handlePinchGestureEvent(PinchGestureEvent& event)
{
    handByStack(*this, &EventHandler::handlePinchGestureEvent, event);
}

void Scene::handleUserDragInitEvent(MouseEvent& event)
{
    handByStack(*this, &EventHandler::handleUserDragInitEvent, event);
}

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
