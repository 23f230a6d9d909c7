#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"

namespace Tova2 {

/// The user asks for a menu, by mouse or by key.
class TOVA_EXPORT ContextMenuEvent : public Event {
public:
    explicit ContextMenuEvent(EventType type);
    ContextMenuEvent(EventType type, const Vetra::GLContextMenuEvent2& event);

    const char* className() const noexcept override { return "ContextMenuEvent"; }
    /// As the canvas maps it now; the widget position when there is no canvas.
    Vetra::GLPoint<double> scenePos() const;
    const Vetra::GLContextMenuEvent2& asGLContextMenuEvent2() const noexcept { return m_event; }

protected:
    void internalAccept(EventHandler& handler) override;

private:
    void appendDetails(std::string& text) const override;

    Vetra::GLContextMenuEvent2 m_event;

    TOVA_DERIVED_TYPE("Tova2.ContextMenuEvent", Event);
};

} // namespace Tova2
