#include "tova/widget/momentumcontroller.h"

#include "support/rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace {

using Tova2::MomentumController;
using Point = Vetra::GLPoint<double>;

/// Drags along `track`, one sample each interval, lets go and steps to the end of the glide.
std::vector<Point> glideAfter(MomentumController& controller, const std::vector<Point>& track,
                              double interval)
{
    std::vector<Point> steps;
    controller.momentumNotificationEmitter().connect([&](Point step) { steps.push_back(step); });
    controller.setFixedTimeInterval(interval);
    for (const Point& location : track)
        controller.sampleLocation(location);
    controller.beginMomentumNotifications();
    for (int i = 0; i < 1000 && controller.isRunning(); ++i)
        controller.sendNextVelocityNotification();
    return steps;
}

struct Drag {
    std::vector<Point> track;
    double interval;
    double speed; ///< the average by hand, in pixels a second
    Point direction;
};

struct DragCase : NamedRow {
    Drag drag;
};

class GlideTest : public testing::TestWithParam<DragCase> {};

TEST_P(GlideTest, DecaysFromTheAveragedSpeedUntilItIsTooSlow)
{
    const auto& [track, interval, speed, direction] = GetParam().drag;
    MomentumController controller;
    const auto steps = glideAfter(controller, track, interval);
    EXPECT_FALSE(controller.isRunning());
    const auto velocityAt = [&](std::size_t n) {
        return speed / 12 * std::exp(-8 * interval * double(n));
    };
    for (std::size_t i = 0; i < steps.size(); ++i) {
        EXPECT_NEAR(steps[i].x, velocityAt(i + 1) * direction.x, 1e-5 * speed) << i;
        EXPECT_NEAR(steps[i].y, velocityAt(i + 1) * direction.y, 1e-5 * speed) << i;
    }
    EXPECT_LT(velocityAt(steps.size() + 1), 2.0);
    EXPECT_TRUE(steps.empty() || velocityAt(steps.size()) >= 2.0 - 1e-6);
}

INSTANTIATE_TEST_SUITE_P(
    Momentum, GlideTest,
    testing::Values(
        // What covers the time before the first sample has no speed: (0.03 * 0 + 0.03 * 240) / 0.06
        // is 120, and (0.06 * 120 + 0.03 * 240) / 0.09 is 160.
        DragCase{{"AStartFromRest"}, {{{0, 0}, {7.2, 0}, {14.4, 0}}, 0.03, 160, {1, 0}}},
        // The average before covers 0.2 s and keeps 0.1: (0.1 * 400 + 0.1 * 1000) / 0.2.
        DragCase{{"WeighsByTime"}, {{{0, 0}, {80, 0}, {80, -100}}, 0.1, 700, {0, -1}}},
        // An interval as long as the period leaves nothing of what came before.
        DragCase{{"AnOldSpeedIsForgotten"}, {{{0, 0}, {900, 0}, {1025, 0}}, 0.25, 500, {1, 0}}},
        DragCase{{"HoldingStillKillsIt"}, {{{0, 0}, {900, 0}, {900, 0}}, 0.3, 0, {0, 0}}},
        DragCase{{"OneSampleIsNoSpeed"}, {{{5, 5}}, 0.03, 0, {0, 0}}},
        DragCase{{"NoMovementIsNoSpeed"}, {{{5, 5}, {5, 5}}, 0.03, 0, {0, 0}}}),
    rowName);

TEST(MomentumControllerTest, TakesNoSampleThatTellsNothing)
{
    MomentumController controller;
    controller.setFixedTimeInterval(0.0004);
    EXPECT_FALSE(controller.sampleLocation({1, 1}));
    EXPECT_FALSE(controller.sampleLocation({2, 2}));
    EXPECT_TRUE(controller.sampleLocation({3, 3})) << "1.2 ms have gathered";
    controller.setFixedTimeInterval(0.03);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_FALSE(controller.sampleLocation({nan, 0}));
    EXPECT_FALSE(controller.sampleLocation({0, -std::numeric_limits<double>::infinity()}));
    EXPECT_FALSE(controller.sampleLocation({1e308, -1e308})) << "the speed is beyond all measure";
    EXPECT_TRUE(controller.sampleLocation({30, 3}));
    controller.beginMomentumNotifications();
    EXPECT_FALSE(controller.sampleLocation({60, 3})) << "it glides";
}

TEST(MomentumControllerTest, MayBeDestroyedByWhomItCalls)
{
    for (const char* const call : {"beginning", "step", "ended"}) {
        auto controller = std::make_unique<MomentumController>();
        const auto endIn = [&controller, call](const std::string& name) {
            if (name == call)
                controller.reset();
        };
        controller->momentumBeginningEmitter().connect([=] { endIn("beginning"); });
        controller->momentumNotificationEmitter().connect([=](Point) { endIn("step"); });
        controller->momentumEndedEmitter().connect([=] { endIn("ended"); });
        controller->setFixedTimeInterval(0.03);
        controller->sampleLocation({0, 0});
        controller->sampleLocation({90, 0});
        controller->beginMomentumNotifications();
        for (int i = 0; i < 100 && controller; ++i)
            controller->sendNextVelocityNotification();
        EXPECT_FALSE(controller) << call;
    }
}

} // namespace
