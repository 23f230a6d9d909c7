#include "widget/input/touchinput.h"

#include "widget/input/dispatchcore.h"
#include "widget/input/gestureinput.h"
#include "widget/input/mouseinput.h"

#include "tova/events/eventcanvas.h"
#include "vetra/qt.h"
#include "vetra/qtevents.h"

#include <QLineF>
#include <QStyleHints>
#include <QTouchDevice>

#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace Tova2 {

using Vetra::GestureState;
using Vetra::MouseButton;

namespace {

using Point = QTouchEvent::TouchPoint;

std::vector<const Point*> fingersDown(const QTouchEvent& event)
{
    std::vector<const Point*> down;
    for (const Point& point : event.touchPoints()) {
        if (point.state() != Qt::TouchPointReleased)
            down.push_back(&point);
    }
    return down;
}

const Point* find(const std::vector<const Point*>& points, int id)
{
    const auto found = std::find_if(points.begin(), points.end(),
                                    [id](const Point* point) { return point->id() == id; });
    return found == points.end() ? nullptr : *found;
}

} // namespace

bool TouchInput::take(const QTouchEvent& event)
{
    if (event.device() && event.device()->type() == QTouchDevice::TouchPad)
        return false;
    const auto down = fingersDown(event);
    if (event.type() == QEvent::TouchCancel) {
        m_phase = Phase::None;
        m_core.cancelGesture();
    } else if (m_phase == Phase::None && down.size() == 1) {
        press(*down[0], event);
    } else if (m_phase == Phase::One && down.size() < 2) {
        dragOne(find(down, m_first), event);
    } else if ((m_phase == Phase::None || m_phase == Phase::One) && down.size() >= 2) {
        beginPair(*down[0], *down[1]);
    } else if (m_phase == Phase::Two) {
        const Point* const a = find(down, m_first);
        const Point* const b = find(down, m_second);
        if (a && b)
            movePair(*a, *b);
        else
            endPair(GestureState::GestureFinished);
    }
    if (down.empty())
        m_phase = Phase::None;
    return true;
}

void TouchInput::press(const Point& finger, const QTouchEvent& event)
{
    m_phase = Phase::One;
    m_first = finger.id();
    m_last = {.widget = &m_core.canvas(),
              .position = Vetra::fromQt(finger.pos().toPoint()),
              .globalPosition = Vetra::fromQt(finger.screenPos().toPoint()),
              .button = MouseButton::LeftButton,
              .buttons = MouseButton::LeftButton,
              .modifiers = Vetra::fromQt(event.modifiers())};
    m_mouse.press(isDoubleTap(finger, event.timestamp()) ? EventType::MouseDoubleClickEvent
                                                         : EventType::MousePressEvent,
                  m_last);
}

/// Null once the finger has been lifted.
void TouchInput::dragOne(const Point* finger, const QTouchEvent& event)
{
    if (finger) {
        m_last.position = Vetra::fromQt(finger->pos().toPoint());
        m_last.globalPosition = Vetra::fromQt(finger->screenPos().toPoint());
        m_last.modifiers = Vetra::fromQt(event.modifiers());
        m_last.button = MouseButton::NoButton;
        if (finger->state() == Qt::TouchPointMoved)
            m_mouse.move(m_last);
        return;
    }
    m_phase = Phase::Spent;
    m_last.button = MouseButton::LeftButton;
    m_last.buttons = {};
    m_mouse.release(m_last);
}

bool TouchInput::isDoubleTap(const Point& finger, ulong time)
{
    const QStyleHints& hints = *QGuiApplication::styleHints();
    const bool isSecond =
        m_tappedAt != 0 && time - m_tappedAt <= ulong(hints.mouseDoubleClickInterval()) &&
        QLineF(m_tapPlace, finger.pos()).length() <= hints.touchDoubleTapDistance();
    m_tappedAt = isSecond ? 0 : time;
    m_tapPlace = finger.pos();
    return isSecond;
}

void TouchInput::beginPair(const Point& a, const Point& b)
{
    if (m_phase == Phase::One)
        m_core.cancelGesture();
    if (!m_core.isOpen())
        return;
    m_phase = Phase::Two;
    m_tappedAt = 0; // that was no tap
    m_first = a.id();
    m_second = b.id();
    m_pair = pairOf(a, b);
    m_gesture = m_core.gestureNumber();
    m_gestures.pan(GestureState::GestureStarted);
    if (m_core.isOpen())
        m_gestures.pinch(GestureState::GestureStarted, m_pair.middle);
}

void TouchInput::movePair(const Point& a, const Point& b)
{
    if (m_gesture != m_core.gestureNumber()) {
        m_phase = Phase::Spent;
        return;
    }
    const Pair last = std::exchange(m_pair, pairOf(a, b));
    const Pair now = m_pair;
    m_gestures.pan(GestureState::GestureUpdated,
                   {now.middle.x - last.middle.x, now.middle.y - last.middle.y});
    if (m_core.isOpen() && m_gesture == m_core.gestureNumber())
        m_gestures.pinch(GestureState::GestureUpdated, now.middle, now.distance / last.distance,
                         std::remainder(now.angle - last.angle, 360));
}

void TouchInput::endPair(GestureState state)
{
    m_phase = Phase::Spent;
    if (m_gesture != m_core.gestureNumber())
        return;
    m_gestures.pinch(state, m_pair.middle);
    if (m_core.isOpen() && m_gesture == m_core.gestureNumber())
        m_gestures.pan(state);
}

TouchInput::Pair TouchInput::pairOf(const Point& a, const Point& b)
{
    const QPointF way = b.pos() - a.pos();
    // Fingers that touch each other are a pixel apart, so that no factor is out of bounds.
    return {Vetra::fromQt((a.pos() + b.pos()) / 2), std::max(std::hypot(way.x(), way.y()), 1.0),
            std::atan2(way.y(), way.x()) * 180 / std::numbers::pi};
}

} // namespace Tova2
