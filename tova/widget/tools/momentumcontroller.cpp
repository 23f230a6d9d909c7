#include "tova/widget/momentumcontroller.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

constexpr double kShortestDirection = 0.0001;

Vetra::GLPoint<double> normalised(const Vetra::GLPoint<double>& vector, double length)
{
    return length < kShortestDirection
               ? Vetra::GLPoint<double>{}
               : Vetra::GLPoint<double>{vector.x / length, vector.y / length};
}

} // namespace

MomentumController::~MomentumController() = default;

void MomentumController::setFixedTimeInterval(double seconds) noexcept
{
    if (std::isfinite(seconds))
        m_fixedTimeInterval = seconds;
}

void MomentumController::setVelocityMovingAveragePeriodSec(double seconds) noexcept
{
    if (std::isfinite(seconds) && seconds > 0)
        m_averagingPeriod = seconds;
}

bool MomentumController::sampleLocation(const Vetra::GLPoint<double>& location)
{
    if (isRunning() || !std::isfinite(location.x) || !std::isfinite(location.y))
        return false;
    const double milliseconds = wholeMillisecondsSinceSample();
    if (!(milliseconds > 0))
        return false;
    const double seconds = milliseconds / 1000;
    if (m_averagedSpan == 0) {
        m_averagedSpan = std::min(seconds, m_averagingPeriod);
    } else {
        const Vetra::GLPoint<double> velocity = (location - m_lastLocation) * (1 / seconds);
        const double speed = std::hypot(velocity.x, velocity.y);
        if (!std::isfinite(speed))
            return false;
        m_isSampled = true;
        if (speed > 0)
            m_direction = normalised(velocity, speed);
        addToAverage(speed, std::min(seconds, m_averagingPeriod));
    }
    m_lastLocation = location;
    restartStopwatch();
    return true;
}

void MomentumController::addToAverage(double speed, double seconds) noexcept
{
    // What came before counts for no more than the part of the period that is left to it.
    const double before = std::min(m_averagingPeriod - seconds, m_averagedSpan);
    m_averagedSpan = before + seconds;
    m_averageSpeed = (before * m_averageSpeed + speed * seconds) / m_averagedSpan;
}

void MomentumController::resetSampling() noexcept
{
    m_fixedElapsed = 0;
    m_isSampled = false;
    m_averagedSpan = 0;
    m_averageSpeed = 0;
    m_direction = {};
}

void MomentumController::beginMomentumNotifications()
{
    if (isRunning() || !m_isSampled || !(m_averageSpeed > 0))
        return;
    m_releaseVelocity = calculateReleaseVelocity();
    restartStopwatch();
    start();
    if (isRunning())
        m_beginning.send();
}

void MomentumController::start()
{
    if (hasFixedTime())
        m_isStepped = true;
    else
        m_timer.startRepeating(std::chrono::milliseconds(DEFAULT_NOTIFICATION_INTERVAL_MILLISEC),
                               [this] { sendNextVelocityNotification(); });
}

double MomentumController::calculateReleaseVelocity() const noexcept
{
    return m_averageSpeed / DEFAULT_VELOCITY_CONSTANT_DIVISOR;
}

void MomentumController::sendNextVelocityNotification()
{
    if (!isRunning())
        return;
    const double decay = std::pow(E, -secondsSinceRelease() * DEFAULT_DRAG_COEFFICIENT);
    const double speed = decay * m_releaseVelocity;
    if (speed >= DEFAULT_STOP_VELOCITY)
        m_notification.send(m_direction * speed);
    else
        endMomentumNotifications();
}

void MomentumController::endMomentumNotifications()
{
    if (!isRunning())
        return;
    m_timer.stop();
    m_isStepped = false;
    restartStopwatch();
    resetSampling();
    m_ended.send();
}

void MomentumController::applyMultiplierOnReleaseMagnitude(double multiplier)
{
    if (const double product = m_releaseVelocity * multiplier; std::isfinite(product))
        m_releaseVelocity = product;
}

void MomentumController::restartStopwatch() noexcept
{
    m_since = Clock::now();
    m_fixedElapsed = 0;
}

double MomentumController::wholeMillisecondsSinceSample() noexcept
{
    if (hasFixedTime()) {
        m_fixedElapsed += m_fixedTimeInterval;
        return std::trunc(m_fixedElapsed * 1000);
    }
    using std::chrono::milliseconds;
    return double(std::chrono::duration_cast<milliseconds>(Clock::now() - m_since).count());
}

double MomentumController::secondsSinceRelease() noexcept
{
    if (hasFixedTime())
        return m_fixedElapsed += m_fixedTimeInterval;
    return wholeMillisecondsSinceSample() / 1000;
}

} // namespace Tova2
