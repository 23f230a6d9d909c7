#pragma once

#include <QTouchDevice>
#include <QTouchEvent>

#include <vector>

namespace Tova2 {

struct Finger {
    int id;
    QPointF at;
    Qt::TouchPointState state;
};

inline QTouchEvent touch(QEvent::Type type, const std::vector<Finger>& fingers)
{
    static QTouchDevice screen;
    screen.setType(QTouchDevice::TouchScreen);
    QList<QTouchEvent::TouchPoint> points;
    Qt::TouchPointStates states;
    for (const Finger& finger : fingers) {
        QTouchEvent::TouchPoint point(finger.id);
        point.setPos(finger.at);
        point.setScreenPos(finger.at);
        point.setState(finger.state);
        points.push_back(point);
        states |= finger.state;
    }
    return QTouchEvent(type, &screen, {}, states, points);
}

} // namespace Tova2
