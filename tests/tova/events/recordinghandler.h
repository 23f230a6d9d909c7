#pragma once

#include "tova/events/contextmenuevent.h"
#include "tova/events/dragevent.h"
#include "tova/events/eventcanvas.h"
#include "tova/events/eventhandler.h"
#include "tova/events/focusevent.h"
#include "tova/events/inputmethodevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/pangestureevent.h"
#include "tova/events/pinchgestureevent.h"
#include "tova/events/widgetevent.h"

#include <string>
#include <vector>

namespace Tova2 {

/// Writes down which operation was called.
class RecordingHandler : public EventHandler {
public:
    std::vector<std::string> log;

    void handleMouseMoveEvent(MouseEvent&) override { log.push_back("MouseMove"); }
    void handleMousePressEvent(MouseEvent&) override { log.push_back("MousePress"); }
    void handleMouseReleaseEvent(MouseEvent&) override { log.push_back("MouseRelease"); }
    void handleMouseDoubleClickEvent(MouseEvent&) override { log.push_back("MouseDoubleClick"); }
    void handleHoverEnterEvent(MouseEvent&) override { log.push_back("HoverEnter"); }
    void handleHoverExitEvent(MouseEvent&) override { log.push_back("HoverExit"); }
    void handleUserDragInitEvent(MouseEvent&) override { log.push_back("UserDragInit"); }
    void handleDragEnterEvent(DragEvent&) override { log.push_back("DragEnter"); }
    void handleDragLeaveEvent(WidgetEvent&) override { log.push_back("DragLeave"); }
    void handleDragEvent(DragEvent&) override { log.push_back("Drag"); }
    void handleDropEvent(DragEvent&) override { log.push_back("Drop"); }
    void handleFocusInEvent(FocusEvent&) override { log.push_back("FocusIn"); }
    void handleFocusOutEvent(FocusEvent&) override { log.push_back("FocusOut"); }
    void handleEnterCanvasEvent(WidgetEvent&) override { log.push_back("EnterCanvas"); }
    void handleLeaveCanvasEvent(WidgetEvent&) override { log.push_back("LeaveCanvas"); }
    void handleContextMenuEvent(ContextMenuEvent&) override { log.push_back("ContextMenu"); }
    void handleWheelEvent(MouseEvent&) override { log.push_back("Wheel"); }
    void handleKeyPressEvent(KeyEvent&) override { log.push_back("KeyPress"); }
    void handleKeyReleaseEvent(KeyEvent&) override { log.push_back("KeyRelease"); }
    void handleInputMethodEvent(InputMethodEvent&) override { log.push_back("InputMethod"); }
    void handlePanGestureEvent(PanGestureEvent&) override { log.push_back("PanGesture"); }
    void handlePinchGestureEvent(PinchGestureEvent&) override { log.push_back("PinchGesture"); }
};

/// Shows `scene` at twice its size, with scene point (10, 20) in the corner.
class FakeCanvas : public EventCanvas {
public:
    explicit FakeCanvas(Scene* shown = nullptr) : scene(shown) {}

    Scene* getScene() const override { return scene; }
    Vetra::GLPoint<double> viewPointToScenePoint(const Vetra::GLPoint<double>& p) const override
    {
        return getViewportTransform().inverted().map(p);
    }
    Vetra::GLPoint<double> scenePointToViewPoint(const Vetra::GLPoint<double>& p) const override
    {
        return getViewportTransform().map(p);
    }
    Vetra::GLRect<double> sceneRectToViewRect(const Vetra::GLRect<double>& r) const override
    {
        return getViewportTransform().mapRect(r);
    }
    Vetra::GLRect<double> viewRectToSceneRect(const Vetra::GLRect<double>& r) const override
    {
        return getViewportTransform().inverted().mapRect(r);
    }
    Vetra::Transform getViewportTransform() const override { return {2, 0, 0, 2, -20, -40}; }
    void setToolInteraction(bool on) override { isInteracting = on; }

    Scene* scene;
    bool isInteracting = false;
};

} // namespace Tova2
