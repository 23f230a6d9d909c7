#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"

namespace Tova2 {

/// Text that an input method composes (the pre-edit string) or has composed (the commit string).
class TOVA_EXPORT InputMethodEvent : public Event {
public:
    /// `attributes` carries the toolkit's list of them, or nothing.
    InputMethodEvent(EventType type, EventCanvas* canvas, std::u16string commitString,
                     Vetra::any attributes, std::u16string preeditString, int replacementStart,
                     int replacementLength, bool isTest);
    InputMethodEvent(EventType type, Vetra::GLInputMethodEvent2 event);

    const char* className() const noexcept override { return "InputMethodEvent"; }
    const std::u16string& commitString() const noexcept { return m_event.commitString; }
    const std::u16string& preeditString() const noexcept { return m_event.preeditString; }
    const Vetra::any& attributes() const noexcept { return m_event.attributes; }
    /// From the cursor; as the input method said it, so it may lie outside any text.
    int replacementStart() const noexcept { return m_event.replacementStart; }
    int replacementLength() const noexcept { return m_event.replacementLength; }
    bool isTestEvent() const noexcept { return m_event.isTestEvent; }
    const Vetra::GLInputMethodEvent2& asGLInputMethodEvent2() const noexcept { return m_event; }

protected:
    void internalAccept(EventHandler& handler) override;

private:
    Vetra::GLInputMethodEvent2 m_event;

    TOVA_DERIVED_TYPE("Tova2.InputMethodEvent", Event);
};

} // namespace Tova2
