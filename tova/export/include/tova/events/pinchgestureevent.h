#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"

namespace Tova2 {

/// Fingers scale or turn the view.
class TOVA_EXPORT PinchGestureEvent : public Event, public Vetra::GLPinchGestureEvent2 {
public:
    PinchGestureEvent(EventType type, const Vetra::GLPinchGestureEvent2& event);
    PinchGestureEvent(EventType type, EventCanvas* canvas, Vetra::GestureType gestureType,
                      Vetra::GestureState gestureState, const Vetra::GLPoint<double>& center,
                      double scaleFactor, double rotationAngle);
    PinchGestureEvent(const PinchGestureEvent&) = default;
    PinchGestureEvent& operator=(const PinchGestureEvent&) = default;

    const char* className() const noexcept override { return "PinchGestureEvent"; }
    /// Of the centre; the centre itself when there is no canvas.
    const Vetra::GLPoint<double>& scenePos() const noexcept { return m_scenePos; }
    const Vetra::GLPinchGestureEvent2& asGLPinchGestureEvent2() const noexcept { return *this; }

protected:
    void internalAccept(EventHandler& handler) override;

private:
    void appendDetails(std::string& text) const override;

    Vetra::GLPoint<double> m_scenePos;

    TOVA_DERIVED_TYPE("Tova2.PinchGestureEvent", Event);
};

} // namespace Tova2
