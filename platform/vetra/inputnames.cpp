#include "vetra/inputnames.h"

#include <QMetaEnum>

#include <array>
#include <charconv>
#include <utility>

namespace Vetra {

namespace {

constexpr std::array<std::pair<Modifier, const char*>, 5> modifierNames{{
    {Modifier::Shift, "SHIFT "},
    {Modifier::Ctrl, "CTRL "},
    {Modifier::Alt, "ALT "},
    {Modifier::Meta, "META "},
    {Modifier::Keypad, "KEYPAD "},
}};

} // namespace

const char* nameOf(MouseButton button) noexcept
{
    switch (button) {
    case MouseButton::NoButton:
        return "NoButton";
    case MouseButton::LeftButton:
        return "LeftButton";
    case MouseButton::RightButton:
        return "RightButton";
    case MouseButton::MidButton:
        return "MidButton";
    case MouseButton::XButton1:
        return "XButton1";
    case MouseButton::XButton2:
        return "XButton2";
    }
    return "Invalid button!";
}

const char* nameOf(GestureState state) noexcept
{
    switch (state) {
    case GestureState::NoGesture:
        return "NoGesture";
    case GestureState::GestureStarted:
        return "GestureStarted";
    case GestureState::GestureUpdated:
        return "GestureUpdated";
    case GestureState::GestureFinished:
        return "GestureFinished";
    case GestureState::GestureCanceled:
        return "GestureCanceled";
    }
    return "Invalid gesture state!";
}

const char* nameOf(FocusReason reason) noexcept
{
    switch (reason) {
    case FocusReason::MouseReason:
        return "MouseReason";
    case FocusReason::TabReason:
        return "TabReason";
    case FocusReason::OtherReason:
        return "OtherReason";
    case FocusReason::BacktabReason: // has no name of its own
        break;
    }
    return "invalid reason!";
}

const char* nameOf(Key key) noexcept
{
    static const QMetaEnum keys = QMetaEnum::fromType<Qt::Key>();
    const char* const name = keys.valueToKey(static_cast<int>(key));
    return name ? name : "Key_unknown";
}

std::string namesOf(Modifiers modifiers)
{
    std::string text = "(";
    for (const auto& [modifier, name] : modifierNames) {
        if (modifiers.has(modifier))
            text += name;
    }
    return text += ')';
}

std::string textOf(double number)
{
    std::array<char, 32> digits; // the longest shortest form takes 24
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    return {digits.data(), end};
}

std::string textOf(const GLPoint<double>& point)
{
    return '(' + textOf(point.x) + ", " + textOf(point.y) + ')';
}

} // namespace Vetra
