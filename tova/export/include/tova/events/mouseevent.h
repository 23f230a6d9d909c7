#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"
#include "vetra/transform.h"

namespace Tova2 {

/// A press, release, move, double click, wheel turn, or the start of a drag.
class TOVA_EXPORT MouseEvent : public Event {
public:
    /// With a canvas the scene position is its mapping of the widget position; without one it is
    /// the widget position.
    MouseEvent(EventType type, const Vetra::GLMouseEvent2& event, bool isSynthetic = false);
    /// Positions in the widget and on the screen are cut off toward zero and kept in the range of
    /// an int, what is not a number becoming 0; the viewport transform is the identity.
    MouseEvent(EventType type, EventCanvas* canvas, const Vetra::GLPoint<double>& scenePos,
               const Vetra::GLPoint<double>& widgetPos, const Vetra::GLPoint<double>& globalPos,
               int delta, Vetra::MouseButton button, Vetra::MouseButtons buttons,
               Vetra::Modifiers modifiers, bool isSynthetic, bool isTest);
    MouseEvent(const MouseEvent&) = default;
    MouseEvent& operator=(const MouseEvent&) = default;

    /// A new event of another type at the same place; not consumed.
    MouseEvent withType(EventType type) const;
    /// The same event where the toolkit knows the place more exactly than by whole pixels.
    MouseEvent withScenePos(const Vetra::GLPoint<double>& scenePos) const;

    const char* className() const noexcept override { return "MouseEvent"; }
    const Vetra::GLPoint<double>& scenePos() const noexcept { return m_scenePos; }
    /// Of the canvas, from the scene to the view, when the event was made.
    const Vetra::Transform& getViewportTransform() const noexcept { return m_viewportTransform; }
    const Vetra::GLMouseEvent2& asGLMouseEvent2() const noexcept { return m_event; }

protected:
    void internalAccept(EventHandler& handler) override;

private:
    void appendDetails(std::string& text) const override;

    Vetra::GLMouseEvent2 m_event;
    Vetra::GLPoint<double> m_scenePos;
    Vetra::Transform m_viewportTransform;

    TOVA_DERIVED_TYPE("Tova2.MouseEvent", Event);
};

} // namespace Tova2
