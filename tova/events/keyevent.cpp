#include "tova/events/keyevent.h"

#include "events/eventroutes.h"

#include "tova/events/eventcanvas.h"
#include "vetra/inputnames.h"

#include <utility>

namespace Tova2 {

namespace {

using Vetra::Key;

Key keyOfControl(char16_t c)
{
    switch (c) {
    case u'\b':
        return Key::Backspace;
    case u'\t':
        return Key::Tab;
    case u'\n':
    case u'\r':
        return Key::Return;
    case 0x1b:
        return Key::Escape;
    case 0x7f:
        return Key::Delete;
    default:
        return Key::Unknown;
    }
}

/// Latin letters have the codes of their capitals, where Latin-1 has one.
Key keyThatPrints(const std::u16string& text)
{
    if (text.size() != 1 || text[0] > 0xff)
        return Key::Unknown;
    const char16_t c = text[0];
    if (c < 0x20 || (c >= 0x7f && c < 0xa0))
        return keyOfControl(c);
    const bool isSmall = (c >= u'a' && c <= u'z') || (c >= 0xe0 && c <= 0xfe && c != 0xf7);
    return static_cast<Key>(isSmall ? c - 0x20 : c);
}

} // namespace

KeyEvent::KeyEvent(EventType type, EventCanvas* canvas, const std::u16string& text,
                   bool isAutoRepeat, Vetra::MouseButtons buttons, std::uint32_t nativeKey,
                   bool isTest)
    : KeyEvent(type, canvas, keyThatPrints(text), {}, text, isAutoRepeat, buttons, nativeKey,
               isTest)
{}

KeyEvent::KeyEvent(EventType type, EventCanvas* canvas, Key key, Vetra::Modifiers modifiers,
                   std::u16string text, bool isAutoRepeat, Vetra::MouseButtons buttons,
                   std::uint32_t nativeKey, bool isTest)
    : Event(type, canvas)
    , m_event{canvas, key, modifiers, std::move(text), isAutoRepeat, buttons, nativeKey, isTest}
{}

KeyEvent::KeyEvent(EventType type, Vetra::GLKeyEvent2 event)
    : Event(type, event.widget), m_event(std::move(event))
{}

void KeyEvent::internalAccept(EventHandler& handler)
{
    static constexpr EventRoute<KeyEvent> routes[]{
        {EventType::KeyPressEvent, &EventHandler::handleKeyPressEvent},
        {EventType::KeyReleaseEvent, &EventHandler::handleKeyReleaseEvent},
    };
    callRouted(routes, *this, handler);
}

void KeyEvent::appendDetails(std::string& text) const
{
    text += " for key: ";
    text += nameOf(m_event.key);
    text += " with modifiers " + namesOf(m_event.modifiers);
    if (m_event.isAutoRepeat)
        text += "(autorepeat)";
}

} // namespace Tova2
