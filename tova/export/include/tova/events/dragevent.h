#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"

namespace Tova2 {

/// Something dragged enters the canvas, moves over it, or is dropped.
class TOVA_EXPORT DragEvent : public Event {
public:
    DragEvent(EventType type, const Vetra::GLDragEvent2& event, bool isSynthetic = false);
    DragEvent(EventType type, EventCanvas* canvas, Vetra::EventSource* sourceWidget,
              const Vetra::GLMimeData& mimeData, const Vetra::GLPoint<int>& position,
              Vetra::MouseButtons buttons, Vetra::Modifiers modifiers,
              Vetra::DropActions possibleActions, Vetra::DropAction proposedAction);
    DragEvent(const DragEvent&) = default;
    DragEvent& operator=(const DragEvent&) = default;

    const char* className() const noexcept override { return "DragEvent"; }
    /// As the canvas maps it now; the widget position when there is no canvas.
    Vetra::GLPoint<double> scenePos() const;
    const Vetra::GLDragEvent2& asGLDragEvent2() const noexcept { return m_event; }

    /// A handler's answer: what a drop here would do. `Ignore` until one says otherwise, and when
    /// what it says is not among the possible actions.
    Vetra::DropAction dropAction() const noexcept { return m_dropAction; }
    void setDropAction(Vetra::DropAction action) noexcept;

protected:
    void internalAccept(EventHandler& handler) override;

private:
    void appendDetails(std::string& text) const override;

    Vetra::GLDragEvent2 m_event;
    Vetra::DropAction m_dropAction = Vetra::DropAction::Ignore;

    TOVA_DERIVED_TYPE("Tova2.DragEvent", Event);
};

} // namespace Tova2
