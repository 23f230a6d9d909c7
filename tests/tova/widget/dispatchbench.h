#pragma once

#include "events/recordinghandler.h"

#include "tova/events/unconsumedeventtool.h"
#include "tova/scene/scene.h"
#include "vetra/errorreporter.h"
#include "widget/eventdispatcher.h"
#include "widget/input/dispatchhost.h"

#include <QMouseEvent>
#include <QWidget>

#include <gmock/gmock.h>

namespace Tova2 {

class FakeHost final : public DispatchHost {
public:
    Vetra::GLRect<double> autoscrollArea() const override { return {0, 0, 200, 100}; }
    bool scrollBy(const Vetra::GLPoint<double>&) override { return false; }
    void deliver(MouseEvent&) override {}
    bool takesInput() const override { return isEnabled; }
    std::vector<std::string> dropFormats() const override { return {"text/plain"}; }
    Vetra::GLMimeData dragData() const override { return data; }
    void setDragData(const Vetra::GLMimeData& dragged) override { data = dragged; }

    bool isEnabled = true;
    Vetra::GLMimeData data;
};

/// Recognises a drag with the left button; writes down what happens to it.
class DragTool final : public Tool {
public:
    explicit DragTool(std::vector<std::string>& log) : m_log(log) {}
    void handleMousePressEvent(MouseEvent& event) override
    {
        m_log.push_back(isIdle() ? "press" : "press too many");
        becomeAlert();
        if (onPress)
            onPress(event);
    }
    void handleMouseMoveEvent(MouseEvent&) override
    {
        if (isAlert())
            becomeActive();
    }
    void handleMouseReleaseEvent(MouseEvent& event) override
    {
        if (isIdle())
            m_log.push_back("release too many");
        else if (event.asGLMouseEvent2().buttons.isEmpty())
            becomeIdle();
    }
    void cancel(ECancelReason, const Tool*) override
    {
        m_log.push_back("cancel");
        becomeIdle();
    }
    ModifyingType isModifyingTool() const override { return ModifyingType::ModifiesModel; }
    Vetra::StringID getDefaultRole() const override { return "DragTool"; }

    std::function<void(MouseEvent&)> onPress;

private:
    std::vector<std::string>& m_log;
};

/// A toolkit widget, a canvas at twice the size, and a dispatcher between them; each may be ended.
struct DispatchBench {
    DispatchBench()
    {
        viewport->resize(200, 100);
        scene->clearToolStack();
        auto* const rest = new UnconsumedEventTool;
        rest->unconsumedEmitter().connect(
            [this](Event& event) { log.push_back(debugText(event)); });
        scene->addTool(rest);
        Vetra::setErrorReporter([this](std::exception_ptr) { ++reported; });
    }
    ~DispatchBench() { Vetra::setErrorReporter({}); }

    bool send(QEvent&& event) { return dispatcher->dispatch(event); }
    bool mouse(QEvent::Type type, const QPointF& at, Qt::MouseButton button = Qt::NoButton,
               Qt::MouseButtons held = {})
    {
        return send(QMouseEvent(type, at, at, button, held, {}));
    }
    std::vector<std::string> taken() { return std::exchange(log, {}); }
    DragTool& addDragTool()
    {
        auto* const tool = new DragTool(log);
        scene->addTool(tool);
        return *tool;
    }

    std::vector<std::string> log;
    int reported = 0;
    Vetra::Holder<Scene> scene = Scene::createScene();
    std::unique_ptr<QWidget> viewport = std::make_unique<QWidget>();
    std::unique_ptr<FakeCanvas> canvas = std::make_unique<FakeCanvas>(scene.get());
    FakeHost host;
    ManualClock* clock = new ManualClock;
    std::unique_ptr<EventDispatcher> dispatcher = std::make_unique<EventDispatcher>(
        *viewport, *canvas, host, std::unique_ptr<GestureClock>(clock));
};

} // namespace Tova2
