#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vemit/emitter.h"
#include "vetra/glpoint.h"
#include "vetra/quarntimer.h"

#include <chrono>

namespace Tova2 {

/// Lets what was dragged glide on: measures how fast the pointer goes and, once it lets go, sends
/// velocities that decay exponentially. Lengths are view pixels. GUI thread only.
///
/// Listeners may do anything, and destroy the controller, too; no call arrives after that.
class TOVA_EXPORT MomentumController {
public:
    /// Carries the way to go with this step.
    using NotificationEmitter = Vemit::Emitter<Vetra::GLPoint<double>>;
    using StateEmitter = Vemit::Emitter<>;

    static constexpr double E = 2.718281828;                ///< the base of the decay
    static constexpr double DEFAULT_DRAG_COEFFICIENT = 8.0; ///< per second
    static constexpr double DEFAULT_STOP_VELOCITY = 2.0;    ///< slower than that is standing still
    static constexpr int DEFAULT_NOTIFICATION_INTERVAL_MILLISEC = 30;
    /// What part of the speed per second a step begins with.
    static constexpr double DEFAULT_VELOCITY_CONSTANT_DIVISOR = 12.0;
    static constexpr double DEFAULT_VELOCITY_MOVING_AVERAGING_PERIOD_SEC = 0.2;

    MomentumController() = default;
    MomentumController(const MomentumController&) = delete;
    MomentumController& operator=(const MomentumController&) = delete;
    virtual ~MomentumController();

    /// Where the pointer is now. False when it tells nothing about the speed: while gliding, within
    /// the same millisecond as the sample before, and for what is not finite or moves beyond all
    /// measure.
    bool sampleLocation(const Vetra::GLPoint<double>& location);
    /// Starts to glide with the speed sampled; nothing when it is zero, or when gliding already.
    void beginMomentumNotifications();
    void endMomentumNotifications();
    /// One step: sends a velocity, or ends the glide when that is too slow. Called by the timer; by
    /// the host itself with a fixed time interval.
    void sendNextVelocityNotification();
    bool isRunning() const noexcept { return m_isStepped || m_timer.isActive(); }
    /// Of the glide under way. A product that is not finite is ignored.
    void applyMultiplierOnReleaseMagnitude(double multiplier);

    /// In seconds. A positive one takes the place of the clock, for tests: each sample and each
    /// step is that much later than the last, and no timer runs.
    double fixedTimeInterval() const noexcept { return m_fixedTimeInterval; }
    void setFixedTimeInterval(double seconds) noexcept;
    /// How far back the average of the speed reaches.
    void setVelocityMovingAveragePeriodSec(double seconds) noexcept;

    // These do nothing: how a glide feels is the same everywhere.
    void setDragCoefficient(double) noexcept {}
    void setStopVelocity(double) noexcept {}
    void setNotificationIntervalMillisec(int) noexcept {}
    void setVelocityConstantDivisor(double) noexcept {}

    NotificationEmitter& momentumNotificationEmitter() noexcept { return m_notification; }
    StateEmitter& momentumBeginningEmitter() noexcept { return m_beginning; }
    StateEmitter& momentumEndedEmitter() noexcept { return m_ended; }

private:
    friend class PanZoomTool; // which begins anew with each press
    using Clock = std::chrono::steady_clock;

    bool hasFixedTime() const noexcept { return m_fixedTimeInterval > 0; }
    void restartStopwatch() noexcept;
    double wholeMillisecondsSinceSample() noexcept;
    double secondsSinceRelease() noexcept;
    void addToAverage(double speed, double seconds) noexcept;
    double calculateReleaseVelocity() const noexcept;
    /// Forgets the samples taken; a glide under way goes on.
    void resetSampling() noexcept;
    void start();

    NotificationEmitter m_notification;
    StateEmitter m_beginning;
    StateEmitter m_ended;
    double m_averagingPeriod = DEFAULT_VELOCITY_MOVING_AVERAGING_PERIOD_SEC;
    double m_averagedSpan = 0; // seconds; 0 before the first sample
    Vetra::GLPoint<double> m_lastLocation;
    Vetra::GLPoint<double> m_direction; // a unit vector, or zero
    double m_averageSpeed = 0;          // pixels a second
    double m_releaseVelocity = 0;       // pixels a step
    bool m_isSampled = false;
    bool m_isStepped = false; // gliding without a timer
    Clock::time_point m_since = Clock::now();
    double m_fixedElapsed = 0;
    double m_fixedTimeInterval = 0;
    Vetra::QuarnTimer m_timer;

    TOVA_BASE_TYPE("Tova2.MomentumController");
};

} // namespace Tova2
