#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/eventsource.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/transform.h"

namespace Tova2 {

class Scene;

/// What events and tools need of the canvas that an event arrived on. View coordinates are pixels
/// of the canvas, scene coordinates are points.
class TOVA_EXPORT EventCanvas : public virtual Vetra::EventSource {
public:
    ~EventCanvas() override;

    /// Null while the canvas shows none.
    virtual Scene* getScene() const = 0;
    virtual Vetra::GLPoint<double>
    viewPointToScenePoint(const Vetra::GLPoint<double>& point) const = 0;
    virtual Vetra::GLPoint<double>
    scenePointToViewPoint(const Vetra::GLPoint<double>& point) const = 0;
    virtual Vetra::GLRect<double> sceneRectToViewRect(const Vetra::GLRect<double>& rect) const = 0;
    virtual Vetra::GLRect<double> viewRectToSceneRect(const Vetra::GLRect<double>& rect) const = 0;
    /// From the scene to the view.
    virtual Vetra::Transform getViewportTransform() const = 0;
    /// Whether a tool is in the middle of a gesture on this canvas; the tool stack takes it back
    /// after an event that leaves no tool active.
    virtual void setToolInteraction(bool on) = 0;

    TOVA_BASE_TYPE("Tova2.EventCanvas");
};

} // namespace Tova2
