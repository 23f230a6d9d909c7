#pragma once

#include "widget/guarded.h"

#include "tova/scene/scene.h"
#include "vemit/listener.h"
#include "vetra/cursor.h"
#include "vetra/eventsource.h"
#include "vetra/inputenums.h"
#include "vetra/referenced.h"

#include <QCursor>
#include <QPointF>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

class QMouseEvent;

namespace Tova2 {

class DispatchHost;
class Event;
class EventCanvas;

/// The way of one canvas's events into its scene. Handlers may end the scene, the canvas, the
/// toolkit's widget and this: whoever has called `send` or `guard` asks `isOpen` before it goes on,
/// and keeps this alive meanwhile.
class DispatchCore final : public Vemit::Listener {
public:
    DispatchCore(QWidget& viewport, EventCanvas& canvas, DispatchHost& host);
    DispatchCore(const DispatchCore&) = delete;
    DispatchCore& operator=(const DispatchCore&) = delete;
    ~DispatchCore();

    /// False once the canvas or its widget has gone. Neither they nor the host may be called then.
    bool isOpen() const { return m_isOpen && m_viewport && m_life.isAlive(); }
    /// Cancels what the user is doing, and takes no more events. The canvas may be half gone.
    void close();
    bool hasViewport() const { return !m_viewport.isNull(); }
    QWidget& viewport() const { return *m_viewport; }
    EventCanvas& canvas() const { return m_canvas; }
    DispatchHost& host() const { return m_host; }
    Scene* scene() const { return m_scene.get(); }
    /// The canvas in whose viewport a drag began; null for another widget.
    static DispatchCore* ofViewport(const QObject* viewport);

    /// Cancels what goes on in a scene that the canvas does not show any more.
    void followScene();
    /// False when there is nothing to go on with: a handler has thrown, which is reported and
    /// cancels the gesture, or has ended the canvas.
    bool send(Event& event);
    /// Reports what `call` throws. False if it did.
    template <class Call>
    bool guard(Call&& call) noexcept
    {
        return guarded("Input", std::forward<Call>(call));
    }

    /// Whatever begins in here and lasts remembers the number: another one means that it has been
    /// cancelled.
    unsigned gestureNumber() const { return m_gestureNumber; }
    void cancelGesture();
    /// Only when a button is held, or a tool is at work that began on this canvas: another one may
    /// show the scene, too.
    void cancelIfBusy();
    /// Wherever it began, or when the host began it.
    void cancelIfAnyoneBusy();
    void cancelIfPressed();

    // Handlers hear of each coming one going, and the other way round: also when the scene is
    // exchanged meanwhile.

    bool isPointerInside() const { return isOpen() && m_isPointerInside; }
    void notePointer(const QMouseEvent& event);
    /// Where the pointer is in the viewport. The toolkit tells widgets of wheels on whole pixels
    /// only; the move before told more exactly, and is taken for it.
    QPointF pointerNear(const QPointF& told) const;
    void enterCanvas();
    void leaveCanvas();
    void takeFocus(Vetra::FocusReason reason);
    void loseFocus(Vetra::FocusReason reason);
    void showCursor();

    /// Keeps this alive through what does not come by the toolkit.
    std::weak_ptr<void> owner;
    /// Called while the scene that the canvas has turned away from still hears of events.
    std::function<void()> beforeSceneLeaves;
    /// That handlers have heard of the press of, and not of the release or a cancellation.
    Vetra::MouseButtons held{};

private:
    bool isBusy() const;
    void cancelTools(Scene& scene);
    void unfollow();
    std::optional<QCursor> ownCursor() const;
    void restoreCursor();

    QPointer<QWidget> m_viewport;
    EventCanvas& m_canvas;
    Vetra::EventSource::Watch m_life;
    DispatchHost& m_host;
    Vetra::Holder<Scene> m_scene;
    const void* m_content = nullptr;           ///< of the scene, which may exchange it
    std::optional<Vetra::Cursor> m_toolCursor; ///< that the viewport shows
    std::optional<QCursor> m_ownCursor;        ///< what it is to show after that
    std::optional<QPointF> m_pointer;          ///< as told last
    unsigned m_gestureNumber = 0;
    bool m_isPointerInside = false;
    bool m_hasFocus = false;
    bool m_hasBegunWork = false; ///< that a tool is still at
    bool m_isOpen = true;
};

} // namespace Tova2
