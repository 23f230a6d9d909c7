#include "widget/input/mouseinput.h"

#include "widget/input/dispatchcore.h"
#include "widget/input/dispatchhost.h"

#include "tova/events/contextmenuevent.h"

#include <QApplication>

#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

using Vetra::MouseButton;
using Vetra::MouseButtons;

MouseButtons without(MouseButtons buttons, MouseButtons removed)
{
    return MouseButtons::fromBits(buttons.bits() & ~removed.bits());
}

/// As the toolkit measures it for widgets.
double wayBetween(const Vetra::GLPoint<int>& a, const Vetra::GLPoint<int>& b)
{
    return std::abs(double(a.x) - b.x) + std::abs(double(a.y) - b.y);
}

} // namespace

void MouseInput::settle(MouseButtons reallyHeld)
{
    if (!without(m_core.held, reallyHeld).isEmpty())
        m_core.cancelGesture();
}

void MouseInput::tellAutoscroller(const Vetra::GLMouseEvent2& event)
{
    m_core.guard(
        [&] { Autoscroller::instance().pointerMoved(m_core.host(), m_core.canvas(), event); });
}

void MouseInput::press(EventType type, const Vetra::GLMouseEvent2& event)
{
    settle(without(event.buttons, event.button));
    if (!m_core.isOpen())
        return;
    m_core.held |= event.button;
    m_menuShownAt.reset();
    tellAutoscroller(event);
    MouseEvent press(type, event);
    m_dragStart.reset();
    if (m_core.held == MouseButton::LeftButton)
        m_dragStart = press;
    const unsigned gesture = m_core.gestureNumber();
    // A handler that has shown a dialog must not leave its tool waiting for a release.
    if (m_core.send(press) && gesture != m_core.gestureNumber())
        m_core.cancelIfBusy();
}

void MouseInput::move(const Vetra::GLMouseEvent2& event)
{
    settle(event.buttons);
    if (!m_core.isOpen())
        return;
    if (event.buttons.isEmpty()) // the toolkit tells no coming of a canvas that is enabled again
        m_core.enterCanvas();
    if (!m_core.isOpen())
        return;
    m_lastMove = event;
    tellAutoscroller(event);
    MouseEvent move(EventType::MouseMoveEvent, event);
    if (m_core.send(move))
        beginDrag(event);
}

void MouseInput::repeatMove()
{
    if (!m_lastMove || !m_core.isPointerInside() || !m_core.held.isEmpty() ||
        (m_core.scene() && m_core.scene()->hasActiveOrAlertTool()))
        return;
    m_lastMove->buttons = {};
    MouseEvent move(EventType::MouseMoveEvent, *m_lastMove);
    m_core.send(move);
}

void MouseInput::beginDrag(const Vetra::GLMouseEvent2& event)
{
    if (!m_dragStart || !m_core.held.has(MouseButton::LeftButton))
        return;
    const auto& start = m_dragStart->asGLMouseEvent2();
    if (wayBetween(start.position, event.position) < QApplication::startDragDistance())
        return;
    MouseEvent init = std::exchange(m_dragStart, {})->withType(EventType::UserDragInitEvent);
    m_core.send(init);
}

void MouseInput::release(const Vetra::GLMouseEvent2& event)
{
    settle(event.buttons | event.button);
    if (!m_core.isOpen() || !m_core.held.has(event.button))
        return;
    m_core.held = without(m_core.held, event.button);
    m_dragStart.reset();
    MouseEvent release(EventType::MouseReleaseEvent, event);
    m_core.send(release);
}

void MouseInput::contextMenu(const Vetra::GLContextMenuEvent2& event)
{
    if (event.reason == Vetra::ContextMenuReason::Mouse) {
        if (m_menuShownAt == event.globalPosition)
            return;
        m_menuShownAt = event.globalPosition;
    }
    ContextMenuEvent menu(EventType::ContextMenuEvent, event);
    m_core.send(menu);
}

} // namespace Tova2
