#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"

namespace Tova2 {

/// The keyboard comes to the canvas or leaves it.
class TOVA_EXPORT FocusEvent : public Event {
public:
    FocusEvent(EventType type, const Vetra::GLFocusEvent2& event);
    FocusEvent(EventType type, Vetra::FocusReason reason);

    const char* className() const noexcept override { return "FocusEvent"; }
    Vetra::FocusReason getReason() const noexcept { return m_reason; }

protected:
    void internalAccept(EventHandler& handler) override;

private:
    void appendDetails(std::string& text) const override;

    Vetra::FocusReason m_reason;

    TOVA_DERIVED_TYPE("Tova2.FocusEvent", Event);
};

} // namespace Tova2
