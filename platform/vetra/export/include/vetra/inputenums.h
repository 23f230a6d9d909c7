#pragma once

#include "vetra/flags.h"

#include <cstdint>

namespace Vetra {

// The numbers are the toolkit's, and hosts store them, unless something else is said.

enum class MouseButton : std::uint32_t {
    NoButton = 0,
    LeftButton = 1,
    RightButton = 2,
    MidButton = 4,
    XButton1 = 8,
    XButton2 = 16
};
using MouseButtons = Flags<MouseButton>;
constexpr MouseButtons operator|(MouseButton a, MouseButton b) noexcept
{
    return MouseButtons(a) | b;
}

enum class Modifier : std::uint32_t {
    None = 0,
    Shift = 0x02000000,
    Ctrl = 0x04000000,
    Alt = 0x08000000,
    Meta = 0x10000000,
    Keypad = 0x20000000
};
using Modifiers = Flags<Modifier>;
constexpr Modifiers operator|(Modifier a, Modifier b) noexcept
{
    return Modifiers(a) | b;
}

/// What moved the focus. `OtherReason` stands for every reason of the toolkit that has no
/// enumerator here, whatever its number there.
enum class FocusReason : std::uint32_t {
    MouseReason = 0,
    TabReason = 1,
    BacktabReason = 2,
    OtherReason = 3
};

enum class ContextMenuReason : std::uint32_t { Mouse = 0, Keyboard = 1, Other = 2 };

enum class GestureType : std::uint32_t {
    NoType = 0,
    Tap = 1,
    TapAndHold = 2,
    Pan = 3,
    Pinch = 4,
    Swipe = 5,
    Custom = 0x0100
};

enum class GestureState : std::uint32_t {
    NoGesture = 0,
    GestureStarted = 1,
    GestureUpdated = 2,
    GestureFinished = 3,
    GestureCanceled = 4
};

enum class DropAction : std::uint32_t {
    Ignore = 0,
    Copy = 1,
    Move = 2,
    Link = 4,
    /// The target moves the data, so the source must not remove it.
    TargetMove = 0x8002
};
using DropActions = Flags<DropAction>;
constexpr DropActions operator|(DropAction a, DropAction b) noexcept
{
    return DropActions(a) | b;
}

} // namespace Vetra
