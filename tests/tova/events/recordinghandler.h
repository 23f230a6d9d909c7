#pragma once

#include "events/eventoperations.h"

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

#define TOVA_RECORD(operation, E)                                                                  \
    void operation(E&) override                                                                    \
    {                                                                                              \
        record(#operation);                                                                        \
    }
    TOVA_EVENT_OPERATIONS(TOVA_RECORD)
#undef TOVA_RECORD

private:
    /// "MousePress" of "handleMousePressEvent".
    void record(std::string operation)
    {
        log.push_back(operation.substr(6, operation.size() - 11));
    }
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
