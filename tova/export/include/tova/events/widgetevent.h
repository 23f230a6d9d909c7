#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"

namespace Tova2 {

/// The pointer, or something dragged, comes to the canvas or leaves it.
class TOVA_EXPORT WidgetEvent : public Event {
public:
    explicit WidgetEvent(EventType type);
    WidgetEvent(EventType type, const Vetra::GLWidgetEvent2& event);

    const char* className() const noexcept override { return "WidgetEvent"; }
    const Vetra::GLWidgetEvent2& asGLWidgetEvent2() const noexcept { return m_event; }

protected:
    void internalAccept(EventHandler& handler) override;

private:
    Vetra::GLWidgetEvent2 m_event;

    TOVA_DERIVED_TYPE("Tova2.WidgetEvent", Event);
};

} // namespace Tova2
