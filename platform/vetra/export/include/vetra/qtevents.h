#pragma once

// Conversions between Vetra's input and the toolkit's. Apart from `vetra/qt.h` the only public
// header here that names toolkit types.

#include "vetra/inputevents.h"
#include "vetra/vetra_export.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <span>
#include <string>

class QDropEvent;
class QMimeData;

namespace Vetra {

inline MouseButton fromQt(Qt::MouseButton button)
{
    return static_cast<MouseButton>(button);
}
inline MouseButtons fromQt(Qt::MouseButtons buttons)
{
    return MouseButtons::fromBits(static_cast<unsigned>(int(buttons)));
}
inline Modifiers fromQt(Qt::KeyboardModifiers modifiers)
{
    return Modifiers::fromBits(static_cast<unsigned>(int(modifiers)));
}
inline GestureType fromQt(Qt::GestureType type)
{
    return static_cast<GestureType>(type);
}
inline GestureState fromQt(Qt::GestureState state)
{
    return static_cast<GestureState>(state);
}
inline DropAction fromQt(Qt::DropAction action)
{
    return static_cast<DropAction>(action);
}
inline DropActions fromQt(Qt::DropActions actions)
{
    return DropActions::fromBits(static_cast<unsigned>(int(actions)));
}
VETRA_EXPORT FocusReason fromQt(Qt::FocusReason reason);

inline Qt::MouseButton toQt(MouseButton button)
{
    return static_cast<Qt::MouseButton>(button);
}
inline Qt::MouseButtons toQt(MouseButtons buttons)
{
    return Qt::MouseButtons(static_cast<int>(buttons.bits()));
}
inline Qt::KeyboardModifiers toQt(Modifiers modifiers)
{
    return Qt::KeyboardModifiers(static_cast<int>(modifiers.bits()));
}
inline Qt::DropAction toQt(DropAction action)
{
    return static_cast<Qt::DropAction>(action);
}
VETRA_EXPORT Qt::FocusReason toQt(FocusReason reason);

// `widget` is what the toolkit's event arrived on.
VETRA_EXPORT GLMouseEvent2 fromQt(const QMouseEvent& event, EventSource* widget);
/// A wheel that turns sideways only gives its turn as `delta` all the same.
VETRA_EXPORT GLMouseEvent2 fromQt(const QWheelEvent& event, EventSource* widget);
VETRA_EXPORT GLKeyEvent2 fromQt(const QKeyEvent& event, EventSource* widget);
VETRA_EXPORT GLInputMethodEvent2 fromQt(const QInputMethodEvent& event, EventSource* widget);
VETRA_EXPORT GLFocusEvent2 fromQt(const QFocusEvent& event, EventSource* widget);
VETRA_EXPORT GLContextMenuEvent2 fromQt(const QContextMenuEvent& event, EventSource* widget);
/// `source` is where the drag began. The data is handed over apart, so that it is read once a drag
/// and not with every move.
VETRA_EXPORT GLDragEvent2 fromQt(const QDropEvent& event, EventSource* widget, EventSource* source,
                                 const GLMimeData& data);
/// The bytes of those of the `formats` that are there, as they came: nothing is decoded. One of
/// more than `kMaxMimeBytes` is left out.
VETRA_EXPORT GLMimeData fromQt(const QMimeData& data, std::span<const std::string> formats);

// What a tool hands on to a toolkit widget. `type` is the toolkit's, which the value does not know.
VETRA_EXPORT QMouseEvent toQt(const GLMouseEvent2& event, QEvent::Type type);
/// The turn of a wheel, for which the value has no kind of its own.
VETRA_EXPORT QWheelEvent toQtWheel(const GLMouseEvent2& event);
VETRA_EXPORT QKeyEvent toQt(const GLKeyEvent2& event, QEvent::Type type);
VETRA_EXPORT QInputMethodEvent toQt(const GLInputMethodEvent2& event);
VETRA_EXPORT QFocusEvent toQt(const GLFocusEvent2& event, QEvent::Type type);
VETRA_EXPORT QContextMenuEvent toQt(const GLContextMenuEvent2& event);

} // namespace Vetra
