#include "vetra/quarntimer.h"
#include "vetra/errorreporter.h"

#include "support.h"

#include <QEventLoop>
#include <QTimer>

#include <stdexcept>

namespace Vetra {
namespace {

using std::chrono::milliseconds;

/// Runs the loop until another timer, started later with the same interval, has fired a few times:
/// whatever was to come has come by then, however slow the machine.
void runLoop()
{
    QEventLoop loop;
    int ticks = 0;
    QuarnTimer clock;
    clock.startRepeating(milliseconds(1), [&] {
        if (++ticks == 5)
            loop.quit();
    });
    loop.exec();
}

TEST(QuarnTimerTest, RepeatsUntilStoppedFromItsCallback)
{
    int ticks = 0;
    QuarnTimer timer;
    timer.startRepeating(milliseconds(0), [&] {
        if (++ticks == 2)
            timer.stop();
    });
    EXPECT_TRUE(timer.isActive());
    while (timer.isActive())
        runLoop();
    runLoop();
    EXPECT_EQ(ticks, 2);
}

TEST(QuarnTimerTest, MayBeDestroyedByItsCallback)
{
    int ticks = 0;
    auto timer = std::make_unique<QuarnTimer>();
    const auto captured = std::make_shared<int>(7);
    timer->startRepeating(milliseconds(1), [&ticks, &timer, captured] {
        timer.reset();
        ticks += *captured;
    });
    while (timer)
        runLoop();
    runLoop();
    EXPECT_EQ(ticks, 7);
    EXPECT_EQ(captured.use_count(), 1);
}

TEST(QuarnTimerTest, ARestartReplacesTheCallback)
{
    int first = 0, second = 0;
    QuarnTimer timer;
    timer.startRepeating(milliseconds(1), [&] {
        ++first;
        timer.startRepeating(milliseconds(1), [&] { ++second; });
    });
    while (second == 0)
        runLoop();
    EXPECT_EQ(first, 1);
}

TEST(QuarnTimerTest, NothingComesAfterStopOrEnd)
{
    int ticks = 0;
    QuarnTimer stopped;
    stopped.startRepeating(milliseconds(1), [&] { ++ticks; });
    {
        QuarnTimer ended;
        ended.startRepeating(milliseconds(1), [&] { ++ticks; });
    }
    stopped.stop();
    runLoop();
    EXPECT_EQ(ticks, 0);
    stopped.startRepeating(milliseconds(1), {});
    EXPECT_FALSE(stopped.isActive());
}

TEST(QuarnTimerTest, AThrowingCallbackIsReportedOnceAndStops)
{
    int reports = 0;
    setErrorReporter([&](std::exception_ptr) {
        ++reports;
        throw std::logic_error("even from the reporter");
    });
    QuarnTimer timer;
    timer.startRepeating(milliseconds(1), [] { throw std::runtime_error("tick"); });
    while (timer.isActive())
        runLoop();
    runLoop();
    setErrorReporter({});
    EXPECT_EQ(reports, 1);
}

} // namespace
} // namespace Vetra
