#pragma once

#include "tova/events/gestureclock.h"

#include <memory>

class QEvent;
class QWidget;

namespace Tova2 {

class DispatchHost;
class EventCanvas;
class MouseEvent;

/// Between a toolkit's widget and the library: turns each of the widget's events into one of the
/// library's and hands it to the canvas's scene.
///
///  - A press ends in a release or in the cancellation of what it began: when the focus, the window
///    or the mouse is lost, the canvas disabled, hidden or ended, its scene exchanged, a dialog in
///    the way, or the release was somebody else's.
///  - Nothing is thrown through the toolkit: an exception is reported and cancels the gesture.
///  - Handlers may end the scene, the canvas, the widget and the dispatcher.
class EventDispatcher {
public:
    /// Sets the widget up to get moves, drags, touches and composed text. A null clock is taken for
    /// the event loop's. Widget, canvas and host outlive the dispatcher, unless a handler ends
    /// them.
    EventDispatcher(QWidget& viewport, EventCanvas& canvas, DispatchHost& host,
                    std::unique_ptr<GestureClock> clock = nullptr);
    EventDispatcher(const EventDispatcher&) = delete;
    EventDispatcher& operator=(const EventDispatcher&) = delete;
    ~EventDispatcher();

    /// Whether the toolkit is done with the event. If so, the widget may have gone.
    bool dispatch(QEvent& event);
    /// One that was made up, as by the autoscroller.
    void deliver(MouseEvent& event);
    /// The view shows another part of the scene, so that something else may lie under the pointer.
    void viewChanged();
    /// Cancels what goes on, such as before a drag that swallows the release.
    void cancelGesture();
    /// To be called once the canvas shows another scene, or none.
    void sceneChanged();
    /// The canvas begins to end: no more of its events.
    void close();

private:
    struct Parts;
    std::shared_ptr<Parts> m_parts;
};

} // namespace Tova2
