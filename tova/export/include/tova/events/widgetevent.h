#pragma once

#include "tova/events/event.h"
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
};

} // namespace Tova2
