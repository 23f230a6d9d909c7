#include "vetra/inputnames.h"

#include <QMetaEnum>

#include <array>
#include <charconv>
#include <cstddef>

namespace Vetra {

namespace {

template <class E>
struct Name {
    E value;
    const char* text;
};

constexpr Name<Modifier> modifierNames[]{{Modifier::Shift, "SHIFT "},
                                         {Modifier::Ctrl, "CTRL "},
                                         {Modifier::Alt, "ALT "},
                                         {Modifier::Meta, "META "},
                                         {Modifier::Keypad, "KEYPAD "}};

template <class E, std::size_t count>
const char* find(const Name<E> (&names)[count], E value, const char* otherwise) noexcept
{
    for (const auto& name : names) {
        if (name.value == value)
            return name.text;
    }
    return otherwise;
}

} // namespace

const char* nameOf(MouseButton button) noexcept
{
    static constexpr Name<MouseButton> names[]{
        {MouseButton::NoButton, "NoButton"},       {MouseButton::LeftButton, "LeftButton"},
        {MouseButton::RightButton, "RightButton"}, {MouseButton::MidButton, "MidButton"},
        {MouseButton::XButton1, "XButton1"},       {MouseButton::XButton2, "XButton2"}};
    return find(names, button, "Invalid button!");
}

const char* nameOf(GestureState state) noexcept
{
    static constexpr Name<GestureState> names[]{{GestureState::NoGesture, "NoGesture"},
                                                {GestureState::GestureStarted, "GestureStarted"},
                                                {GestureState::GestureUpdated, "GestureUpdated"},
                                                {GestureState::GestureFinished, "GestureFinished"},
                                                {GestureState::GestureCanceled, "GestureCanceled"}};
    return find(names, state, "Invalid gesture state!");
}

const char* nameOf(FocusReason reason) noexcept
{
    static constexpr Name<FocusReason> names[]{{FocusReason::MouseReason, "MouseReason"},
                                               {FocusReason::TabReason, "TabReason"},
                                               {FocusReason::OtherReason, "OtherReason"}};
    return find(names, reason, "invalid reason!");
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
