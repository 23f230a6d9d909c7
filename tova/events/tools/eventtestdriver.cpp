#include "tova/events/eventtestdriver.h"

#include "tova/events/contextmenuevent.h"
#include "tova/events/eventcanvas.h"
#include "tova/events/eventhandler.h"
#include "tova/events/focusevent.h"
#include "tova/events/inputmethodevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/pangestureevent.h"
#include "tova/events/pinchgestureevent.h"
#include "tova/events/widgetevent.h"
#include "vetra/saturate.h"

#include <QChar>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

constexpr double kSamePlace = 0.001; // pixels

Vetra::GLPoint<double> middleOf(const Node& node)
{
    const auto rect = node.getBoundingRect();
    return node.mapLocalToScene(
        Vetra::GLPoint<double>{rect.x + rect.width / 2, rect.y + rect.height / 2});
}

Vetra::GLPoint<double> between(const Vetra::GLPoint<double>& from, const Vetra::GLPoint<double>& to,
                               double part)
{
    return {from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part};
}

Vetra::MouseButtons without(Vetra::MouseButtons buttons, Vetra::MouseButton button)
{
    return Vetra::MouseButtons::fromBits(buttons.bits() & ~Vetra::MouseButtons(button).bits());
}

} // namespace

EventTestDriver::Place::Place(const Node& node) : point(middleOf(node)) {}

EventTestDriver::EventTestDriver(EventHandler& receiver, EventCanvas* canvas)
    : m_receiver(receiver), m_canvas(canvas), m_canvasLife(canvas)
{
    pointAt({});
}

bool EventTestDriver::moveTo(const Place& place)
{
    pointAt(place.point);
    return sendMouse(EventType::MouseMoveEvent, Vetra::MouseButton::NoButton);
}

bool EventTestDriver::press(Vetra::MouseButton button)
{
    m_buttons |= button;
    return sendMouse(EventType::MousePressEvent, button);
}

bool EventTestDriver::release(Vetra::MouseButton button)
{
    m_buttons = without(m_buttons, button);
    return sendMouse(EventType::MouseReleaseEvent, button);
}

bool EventTestDriver::click(const Place& place, Vetra::MouseButton button)
{
    moveTo(place);
    press(button);
    return release(button);
}

bool EventTestDriver::doubleClick(const Place& place, Vetra::MouseButton button)
{
    click(place, button);
    m_buttons |= button;
    sendMouse(EventType::MouseDoubleClickEvent, button);
    return release(button);
}

bool EventTestDriver::drag(const Place& from, const Place& to, int steps, Vetra::MouseButton button)
{
    // Towards where `to` is now: the hand that moves the view itself does not run after it.
    const auto begin = viewPoint(from.point), end = viewPoint(to.point);
    moveTo(from);
    press(button);
    const int count = std::max(steps, 1);
    for (int i = 1; i <= count; ++i) {
        m_pointer = between(from.point, to.point, double(i) / count);
        m_place = between(begin, end, double(i) / count);
        sendMouse(EventType::MouseMoveEvent, Vetra::MouseButton::NoButton);
    }
    return release(button);
}

bool EventTestDriver::wheel(const Place& place, int delta)
{
    pointAt(place.point);
    return sendMouse(EventType::WheelEvent, Vetra::MouseButton::NoButton, delta);
}

bool EventTestDriver::contextMenu(const Place& place, Vetra::ContextMenuReason reason)
{
    pointAt(place.point);
    ContextMenuEvent event(EventType::ContextMenuEvent,
                           {canvas(), pixel(), pixel(), m_modifiers, reason});
    return send(event);
}

bool EventTestDriver::enterCanvas()
{
    return sendWidget(EventType::EnterCanvasEvent);
}

bool EventTestDriver::leaveCanvas()
{
    return sendWidget(EventType::LeaveCanvasEvent);
}

bool EventTestDriver::pressKey(Vetra::Key key, const std::u16string& text, bool isAutoRepeat)
{
    return sendKey(EventType::KeyPressEvent, key, text, isAutoRepeat);
}

bool EventTestDriver::releaseKey(Vetra::Key key)
{
    return sendKey(EventType::KeyReleaseEvent, key, {}, false);
}

bool EventTestDriver::typeKey(Vetra::Key key, const std::u16string& text)
{
    pressKey(key, text);
    return releaseKey(key);
}

bool EventTestDriver::typeText(const std::u16string& text)
{
    bool consumed = false;
    for (std::size_t at = 0, length = 0; at < text.size(); at += length) {
        const bool isPair = at + 1 < text.size() && QChar::isHighSurrogate(text[at]) &&
                            QChar::isLowSurrogate(text[at + 1]);
        length = isPair ? 2 : 1;
        KeyEvent press(EventType::KeyPressEvent, canvas(), text.substr(at, length), false,
                       m_buttons, 0, true);
        send(press);
        consumed = releaseKey(press.key());
    }
    return consumed;
}

bool EventTestDriver::compose(const std::u16string& preedit)
{
    InputMethodEvent event(EventType::InputMethodEvent, canvas(), {}, {}, preedit, 0, 0, true);
    return send(event);
}

bool EventTestDriver::commit(const std::u16string& text, int start, int length)
{
    InputMethodEvent event(EventType::InputMethodEvent, canvas(), text, {}, {}, start, length,
                           true);
    return send(event);
}

bool EventTestDriver::focusIn(Vetra::FocusReason reason)
{
    FocusEvent event(EventType::FocusInEvent, {canvas(), reason});
    return send(event);
}

bool EventTestDriver::focusOut(Vetra::FocusReason reason)
{
    FocusEvent event(EventType::FocusOutEvent, {canvas(), reason});
    return send(event);
}

bool EventTestDriver::pan(Vetra::GestureState state, const Vetra::GLPoint<double>& delta,
                          double acceleration)
{
    PanGestureEvent event(EventType::PanGestureEvent, canvas(), Vetra::GestureType::Pan, state,
                          delta, acceleration);
    return send(event);
}

bool EventTestDriver::pinch(Vetra::GestureState state, const Place& centre, double scale,
                            double degrees)
{
    PinchGestureEvent event(EventType::PinchGestureEvent, canvas(), Vetra::GestureType::Pinch,
                            state, viewPoint(centre.point), scale, degrees);
    return send(event);
}

bool EventTestDriver::send(Event& event)
{
    if (!hasLostCanvas())
        event.accept(m_receiver);
    return event.isConsumed();
}

Vetra::GLPoint<double> EventTestDriver::viewPoint(const Vetra::GLPoint<double>& scenePoint) const
{
    return canvas() ? canvas()->scenePointToViewPoint(scenePoint) : scenePoint;
}

void EventTestDriver::pointAt(const Vetra::GLPoint<double>& scenePoint)
{
    m_pointer = scenePoint;
    m_place = viewPoint(scenePoint);
}

Vetra::GLPoint<double> EventTestDriver::pointedAt() const
{
    const auto moved = viewPoint(m_pointer) - m_place;
    const bool isThere = std::abs(moved.x) < kSamePlace && std::abs(moved.y) < kSamePlace;
    return isThere || !canvas() ? m_pointer : canvas()->viewPointToScenePoint(m_place);
}

Vetra::GLPoint<int> EventTestDriver::pixel() const
{
    return Vetra::saturatedInts(m_place);
}

bool EventTestDriver::sendMouse(EventType type, Vetra::MouseButton button, int delta)
{
    // Not by the pixel, which a scene point need not lie on.
    MouseEvent event(type, canvas(), pointedAt(), m_place, m_place, delta, button, m_buttons,
                     m_modifiers, false, true);
    return send(event);
}

bool EventTestDriver::sendKey(EventType type, Vetra::Key key, const std::u16string& text,
                              bool isAutoRepeat)
{
    KeyEvent event(type, canvas(), key, m_modifiers, text, isAutoRepeat, m_buttons, 0, true);
    return send(event);
}

bool EventTestDriver::sendWidget(EventType type)
{
    WidgetEvent event(type, {canvas()});
    return send(event);
}

} // namespace Tova2
