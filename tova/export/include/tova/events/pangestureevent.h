#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"

namespace Tova2 {

/// Fingers move the view.
class TOVA_EXPORT PanGestureEvent : public Event, public Vetra::GLPanGestureEvent2 {
public:
    PanGestureEvent(EventType type, const Vetra::GLPanGestureEvent2& event);
    PanGestureEvent(EventType type, EventCanvas* canvas, Vetra::GestureType gestureType,
                    Vetra::GestureState gestureState, const Vetra::GLPoint<double>& delta,
                    double acceleration);
    PanGestureEvent(const PanGestureEvent&) = default;
    PanGestureEvent& operator=(const PanGestureEvent&) = default;

    const char* className() const noexcept override { return "PanGestureEvent"; }
    const Vetra::GLPanGestureEvent2& asGLPanGestureEvent2() const noexcept { return *this; }

protected:
    void internalAccept(EventHandler& handler) override;

private:
    void appendDetails(std::string& text) const override;

    TOVA_DERIVED_TYPE("Tova2.PanGestureEvent", Event);
};

} // namespace Tova2
