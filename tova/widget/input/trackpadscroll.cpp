#include "widget/input/trackpadscroll.h"

#include <QGuiApplication>

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

using Vetra::GestureState;

namespace {

/// In pixels. Without them, a notch of 120 stands for 60.
QPointF wayOf(const QWheelEvent& event)
{
    return event.pixelDelta().isNull() ? QPointF(event.angleDelta()) / 2
                                       : QPointF(event.pixelDelta());
}

/// Doubles with some 140 pixels; a single event stays within a factor of ten.
double factorOf(const QPointF& way)
{
    return std::exp(std::clamp(way.y() * 0.005, -2.3, 2.3));
}

} // namespace

bool TrackpadScroll::isSource(const QWheelEvent& event)
{
    if (event.phase() != Qt::NoScrollPhase || event.source() == Qt::MouseEventSynthesizedBySystem)
        return true;
    // On X11 wheels have pixels as well, of the driver's own measure.
    return !event.pixelDelta().isNull() && QGuiApplication::platformName() != QLatin1String("xcb");
}

TrackpadScroll::Steps TrackpadScroll::take(const QWheelEvent& event)
{
    if (event.phase() == Qt::ScrollEnd)
        return end();
    Steps steps;
    if (event.phase() == Qt::ScrollBegin)
        steps = end();
    // A glide stays what it was when the fingers left, and does not outlive its cancellation.
    const bool glides = event.phase() == Qt::ScrollMomentum;
    if (glides && !isGoingOn())
        return {};
    const Kind asked = event.modifiers() & Qt::ControlModifier ? Kind::Pinch : Kind::Pan;
    if (!glides && asked != m_kind) {
        for (const Step& step : end())
            steps.push_back(step);
        m_kind = asked;
        steps.push_back({m_kind, GestureState::GestureStarted});
    }
    const QPointF way = wayOf(event);
    if (!way.isNull())
        steps.push_back({m_kind, GestureState::GestureUpdated, {way.x(), way.y()}, factorOf(way)});
    return steps;
}

TrackpadScroll::Steps TrackpadScroll::end(GestureState state)
{
    if (!isGoingOn())
        return {};
    return {Step{std::exchange(m_kind, Kind::None), state}};
}

} // namespace Tova2
