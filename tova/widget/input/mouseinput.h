#pragma once

#include "tova/events/mouseevent.h"
#include "vetra/inputevents.h"

#include <optional>

namespace Tova2 {

class DispatchCore;

/// Presses, moves and releases. Handlers hear of each press one release, or a cancellation; never
/// of a release without its press.
class MouseInput {
public:
    explicit MouseInput(DispatchCore& core) : m_core(core) {}

    /// `type` is that of a press or of a double click.
    void press(EventType type, const Vetra::GLMouseEvent2& event);
    void move(const Vetra::GLMouseEvent2& event);
    void release(const Vetra::GLMouseEvent2& event);
    /// The view has moved under a pointer that rests: another node may be hovered. Nothing in the
    /// middle of a gesture.
    void repeatMove();
    void contextMenu(const Vetra::GLContextMenuEvent2& event);
    /// Cancels the gesture when a button that it counts on is not among these.
    void settle(Vetra::MouseButtons reallyHeld);

private:
    void tellAutoscroller(const Vetra::GLMouseEvent2& event);
    void beginDrag(const Vetra::GLMouseEvent2& event);

    DispatchCore& m_core;
    std::optional<MouseEvent> m_dragStart; ///< the press that a drag may still come of
    std::optional<Vetra::GLMouseEvent2> m_lastMove;
    std::optional<Vetra::GLPoint<int>> m_menuShownAt; ///< on the desktop, since the last press
};

} // namespace Tova2
