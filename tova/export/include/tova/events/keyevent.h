#pragma once

#include "tova/events/event.h"
#include "tova/typename.h"
#include "vetra/inputevents.h"

namespace Tova2 {

/// A key pressed or released.
class TOVA_EXPORT KeyEvent : public Event {
public:
    /// The key is the one that prints `text`, when it is a single Latin or control character;
    /// `Key::Unknown` for any other.
    KeyEvent(EventType type, EventCanvas* canvas, const std::u16string& text,
             bool isAutoRepeat = false, Vetra::MouseButtons buttons = {},
             std::uint32_t nativeKey = 0, bool isTest = false);
    KeyEvent(EventType type, EventCanvas* canvas, Vetra::Key key, Vetra::Modifiers modifiers,
             std::u16string text = {}, bool isAutoRepeat = false, Vetra::MouseButtons buttons = {},
             std::uint32_t nativeKey = 0, bool isTest = false);
    KeyEvent(EventType type, Vetra::GLKeyEvent2 event);

    const char* className() const noexcept override { return "KeyEvent"; }
    Vetra::Key key() const noexcept { return m_event.key; }
    Vetra::Modifiers modifiers() const noexcept { return m_event.modifiers; }
    const std::u16string& text() const noexcept { return m_event.text; }
    bool isAutoRepeat() const noexcept { return m_event.isAutoRepeat; }
    /// Of the mouse, held meanwhile.
    Vetra::MouseButtons buttons() const noexcept { return m_event.buttons; }
    std::uint32_t nativeKey() const noexcept { return m_event.nativeKey; }
    bool isTestEvent() const noexcept { return m_event.isTestEvent; }
    const Vetra::GLKeyEvent2& asGLKeyEvent2() const noexcept { return m_event; }

protected:
    void internalAccept(EventHandler& handler) override;

private:
    void appendDetails(std::string& text) const override;

    Vetra::GLKeyEvent2 m_event;

    TOVA_DERIVED_TYPE("Tova2.KeyEvent", Event);
};

} // namespace Tova2
