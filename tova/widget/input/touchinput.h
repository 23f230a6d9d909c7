#pragma once

#include "vetra/glpoint.h"
#include "vetra/inputevents.h"

#include <QTouchEvent>

#include <vector>

namespace Tova2 {

class DispatchCore;
class GestureInput;
class MouseInput;

/// A touch screen: one finger is a mouse with its left button held, two pan and pinch.
class TouchInput {
public:
    TouchInput(DispatchCore& core, MouseInput& mouse, GestureInput& gestures)
        : m_core(core), m_mouse(mouse), m_gestures(gestures)
    {}

    /// False for what comes from a trackpad, whose fingers only scroll.
    bool take(const QTouchEvent& event);

private:
    using Point = QTouchEvent::TouchPoint;
    enum class Phase { None, One, Two, Spent };
    struct Pair {
        Vetra::GLPoint<double> middle{};
        double distance = 0;
        double angle = 0; ///< in degrees, clockwise
    };

    void press(const Point& finger, const QTouchEvent& event);
    void dragOne(const Point* finger, const QTouchEvent& event);
    void beginPair(const Point& a, const Point& b);
    void movePair(const Point& a, const Point& b);
    void endPair(Vetra::GestureState state);
    bool isDoubleTap(const Point& finger, ulong time);
    static Pair pairOf(const Point& a, const Point& b);

    DispatchCore& m_core;
    MouseInput& m_mouse;
    GestureInput& m_gestures;
    Phase m_phase = Phase::None;
    unsigned m_gesture = 0;
    int m_first = -1;
    int m_second = -1;
    Vetra::GLMouseEvent2 m_last{}; ///< of the one finger
    Pair m_pair{};
    ulong m_tappedAt = 0; ///< in milliseconds
    QPointF m_tapPlace;
};

} // namespace Tova2
