#pragma once

#include "vetra/any.h"
#include "vetra/glmimedata.h"
#include "vetra/glpoint.h"
#include "vetra/inputenums.h"
#include "vetra/key.h"

#include <cstdint>
#include <string>

namespace Vetra {

class EventSource;

// Input as the toolkit tells of it, without the toolkit. `widget` is what it arrived on, null for
// input that a program makes up; positions are in that widget's pixels.

/// A press, release, double click or move of the mouse, or a turn of its wheel.
struct GLMouseEvent2 {
    EventSource* widget = nullptr;
    GLPoint<int> position{};
    GLPoint<int> globalPosition{};
    int delta = 0; ///< of a wheel, in eighths of a degree, positive away from the user
    MouseButton button = MouseButton::NoButton; ///< that changed
    MouseButtons buttons{};                     ///< held after the change
    Modifiers modifiers{};
    bool isTestEvent = false;

    bool operator==(const GLMouseEvent2&) const = default;
};

/// A press or release of a key.
struct GLKeyEvent2 {
    EventSource* widget = nullptr;
    Key key = Key::Unknown;
    Modifiers modifiers{};
    std::u16string text{};
    bool isAutoRepeat = false;
    MouseButtons buttons{}; ///< held meanwhile
    std::uint32_t nativeKey = 0;
    bool isTestEvent = false;

    bool operator==(const GLKeyEvent2&) const = default;
};

/// Text of an input method, finished and unfinished.
struct GLInputMethodEvent2 {
    EventSource* widget = nullptr;
    std::u16string commitString{};
    std::u16string preeditString{};
    any attributes{}; ///< the toolkit's list of them, or empty
    // Of the text around the cursor, what the commit replaces: start from the cursor, and length.
    int replacementStart = 0;
    int replacementLength = 0;
    bool isTestEvent = false;
};

/// The keyboard focus comes or goes.
struct GLFocusEvent2 {
    EventSource* widget = nullptr;
    FocusReason reason = FocusReason::OtherReason;

    bool operator==(const GLFocusEvent2&) const = default;
};

/// A wish for a context menu, by mouse or key.
struct GLContextMenuEvent2 {
    EventSource* widget = nullptr;
    GLPoint<int> position{};
    GLPoint<int> globalPosition{};
    Modifiers modifiers{};
    ContextMenuReason reason = ContextMenuReason::Other;

    bool operator==(const GLContextMenuEvent2&) const = default;
};

/// A drag enters, moves or drops.
struct GLDragEvent2 {
    EventSource* widget = nullptr;
    EventSource* sourceWidget = nullptr; ///< null for a drag from another program
    GLMimeData mimeData{};
    GLPoint<int> position{};
    MouseButtons buttons{};
    Modifiers modifiers{};
    DropActions possibleActions{};
    DropAction proposedAction = DropAction::Ignore;

    bool operator==(const GLDragEvent2&) const = default;
};

/// Fingers that move together.
struct GLPanGestureEvent2 {
    EventSource* widget = nullptr;
    GestureType gestureType = GestureType::Pan;
    GestureState gestureState = GestureState::NoGesture;
    GLPoint<double> delta{}; ///< since the last event
    double acceleration = 0;

    bool operator==(const GLPanGestureEvent2&) const = default;
};

/// Fingers that spread, close or turn.
struct GLPinchGestureEvent2 {
    EventSource* widget = nullptr;
    GestureType gestureType = GestureType::Pinch;
    GestureState gestureState = GestureState::NoGesture;
    GLPoint<double> centerPoint{};
    double scaleFactor = 1;   ///< since the last event
    double rotationAngle = 0; ///< in degrees, since the last event

    bool operator==(const GLPinchGestureEvent2&) const = default;
};

/// The pointer enters or leaves the widget.
struct GLWidgetEvent2 {
    EventSource* widget = nullptr;

    bool operator==(const GLWidgetEvent2&) const = default;
};

} // namespace Vetra
