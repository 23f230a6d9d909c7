#pragma once

#include "tova/nodes/node.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/eventsource.h"
#include "vetra/glmimedata.h"
#include "vetra/glpoint.h"
#include "vetra/inputenums.h"
#include "vetra/key.h"

#include <string>

namespace Tova2 {

class Event;
class EventCanvas;
class EventHandler;
enum class EventType : std::uint32_t;

/// Plays the user in a test: makes the events that a canvas would make of real input, marked as
/// test events, and hands them to a scene or to any other handler. It keeps the pointer's place in
/// the view, the buttons and the modifiers as a user would; its calls say whether the last event
/// they sent came back consumed. Receiver and canvas are not owned; once a handler has ended the
/// canvas, nothing more is sent.
class TOVA_EXPORT EventTestDriver {
public:
    /// Where to point: a scene point, or the middle of a node's bounding rectangle.
    struct TOVA_EXPORT Place {
        Place(const Vetra::GLPoint<double>& scenePoint) : point(scenePoint) {}
        Place(const Node& node);
        Vetra::GLPoint<double> point;
    };

    /// Without a canvas a scene point counts as the same point of the widget.
    explicit EventTestDriver(EventHandler& receiver, EventCanvas* canvas = nullptr);

    // Pointer

    /// Held from now on.
    void setModifiers(Vetra::Modifiers modifiers) noexcept { m_modifiers = modifiers; }
    bool moveTo(const Place& place);
    bool press(Vetra::MouseButton button = Vetra::MouseButton::LeftButton);
    bool release(Vetra::MouseButton button = Vetra::MouseButton::LeftButton);
    /// Move, press, release.
    bool click(const Place& place, Vetra::MouseButton button = Vetra::MouseButton::LeftButton);
    /// A click, then the second press as a double click, and its release.
    bool doubleClick(const Place& place,
                     Vetra::MouseButton button = Vetra::MouseButton::LeftButton);
    /// Presses at `from`, moves to `to` in equal steps (at least one), releases there.
    bool drag(const Place& from, const Place& to, int steps = 4,
              Vetra::MouseButton button = Vetra::MouseButton::LeftButton);
    /// In eighths of a degree, positive away from the user: 120 is a notch.
    bool wheel(const Place& place, int delta);
    bool contextMenu(const Place& place,
                     Vetra::ContextMenuReason reason = Vetra::ContextMenuReason::Mouse);
    bool enterCanvas();
    bool leaveCanvas();

    // Keyboard

    bool pressKey(Vetra::Key key, const std::u16string& text = {}, bool isAutoRepeat = false);
    bool releaseKey(Vetra::Key key);
    bool typeKey(Vetra::Key key, const std::u16string& text = {});
    /// A press and a release for each character, of two code units or one.
    bool typeText(const std::u16string& text);
    /// Shows `preedit` as the text that an input method composes.
    bool compose(const std::u16string& preedit);
    /// Ends the composition; what lies from `start` on, relative to the cursor, is replaced.
    bool commit(const std::u16string& text, int start = 0, int length = 0);
    bool focusIn(Vetra::FocusReason reason = Vetra::FocusReason::TabReason);
    bool focusOut(Vetra::FocusReason reason = Vetra::FocusReason::OtherReason);

    // Gestures

    bool pan(Vetra::GestureState state, const Vetra::GLPoint<double>& delta,
             double acceleration = 0);
    /// `scale` and `degrees` since the last event.
    bool pinch(Vetra::GestureState state, const Place& centre, double scale, double degrees = 0);

    // Drag and drop

    /// Presses at `from`, moves past the threshold and starts a drag out of `source`, which is null
    /// when nothing took it up. A drag in progress ends first. As on a canvas, what a scene's tools
    /// had begun by then is cancelled: the drag swallows the release.
    void beginDrag(const Place& from, Vetra::EventSource* source, const Vetra::GLMimeData& data,
                   Vetra::DropActions actions = Vetra::DropAction::Copy | Vetra::DropAction::Move);
    /// What the handlers answer. Throws as `drop` does when no drag is in progress.
    Vetra::DropAction dragTo(const Place& place);
    /// Drops, which ends the drag. Throws tova:events/BadDragDropOutsideUsecase when no drag is in
    /// progress, and tova:events/BadDraggingSource when the one that is has no source.
    Vetra::DropAction drop(const Place& place);
    /// Ends the drag without a drop. Throws tova:events/BadDragDropOutsideUsecase when none is in
    /// progress.
    void endDrag();
    bool isDragging() const noexcept { return m_isDragging; }
    /// A drop of something that another program drags.
    Vetra::DropAction dropFromOutside(const Place& place, const Vetra::GLMimeData& data,
                                      Vetra::DropActions actions = Vetra::DropAction::Copy);

private:
    bool send(Event& event);
    EventCanvas* canvas() const { return m_canvasLife.isAlive() ? m_canvas : nullptr; }
    bool hasLostCanvas() const { return m_canvas && !canvas(); }
    Vetra::GLPoint<double> viewPoint(const Vetra::GLPoint<double>& scenePoint) const;
    void pointAt(const Vetra::GLPoint<double>& scenePoint);
    /// The scene may have been moved under the pointer.
    Vetra::GLPoint<double> pointedAt() const;
    Vetra::GLPoint<int> pixel() const;
    bool sendMouse(EventType type, Vetra::MouseButton button, int delta = 0);
    bool sendKey(EventType type, Vetra::Key key, const std::u16string& text, bool isAutoRepeat);
    bool sendWidget(EventType type);
    Vetra::DropAction sendDrag(EventType type);
    void requireDrag() const;
    void forgetDrag();

    EventHandler& m_receiver;
    EventCanvas* m_canvas;
    Vetra::EventSource::Watch m_canvasLife;
    Vetra::GLPoint<double> m_pointer; // in the scene, when it was placed
    Vetra::GLPoint<double> m_place;   // in the view
    Vetra::MouseButtons m_buttons;
    Vetra::Modifiers m_modifiers;
    Vetra::EventSource* m_dragSource = nullptr;
    Vetra::GLMimeData m_dragData;
    Vetra::DropActions m_dragActions;
    bool m_isDragging = false;
    bool m_isDragOverCanvas = false;

    TOVA_PLAIN_TYPE("Tova2.EventTestDriver");
};

} // namespace Tova2
