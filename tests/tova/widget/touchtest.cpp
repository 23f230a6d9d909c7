#include "widget/dispatchbench.h"
#include "widget/touches.h"

#include <gmock/gmock.h>

namespace Tova2 {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

constexpr auto kDown = Qt::TouchPointPressed;
constexpr auto kMoved = Qt::TouchPointMoved;
constexpr auto kStill = Qt::TouchPointStationary;
constexpr auto kUp = Qt::TouchPointReleased;

TEST(TouchTest, ASecondFingerTurnsADragIntoAPanAndAPinch)
{
    DispatchBench bench;
    bench.send(touch(QEvent::TouchBegin, {{7, {20, 40}, kDown}}));
    bench.send(touch(QEvent::TouchUpdate, {{7, {24, 40}, kMoved}}));
    EXPECT_THAT(bench.taken(), ElementsAre(StartsWith("MousePressEvent for button: LeftButton"),
                                           StartsWith("MouseMoveEvent")));
    bench.send(touch(QEvent::TouchUpdate, {{7, {20, 40}, kMoved}, {9, {40, 40}, kDown}}));
    // To a distance of 40 instead of 20, a quarter of a turn clockwise, about (20, 50).
    bench.send(touch(QEvent::TouchUpdate, {{7, {20, 30}, kMoved}, {9, {20, 70}, kMoved}}));
    bench.send(touch(QEvent::TouchUpdate, {{7, {20, 30}, kUp}, {9, {20, 70}, kStill}}));
    EXPECT_THAT(bench.taken(),
                ElementsAre(HasSubstr("state: GestureStarted"), HasSubstr("scaleFactor: 1 "),
                            HasSubstr("state: GestureUpdated delta: (-10, 10)"),
                            HasSubstr("centerPt: (20, 50) scaleFactor: 2 rotationAngle:90"),
                            HasSubstr("scaleFactor: 1 "), HasSubstr("state: GestureFinished")));
    // The finger that is left does nothing any more.
    bench.send(touch(QEvent::TouchUpdate, {{9, {90, 90}, kMoved}}));
    bench.send(touch(QEvent::TouchEnd, {{9, {90, 90}, kUp}}));
    EXPECT_THAT(bench.log, testing::IsEmpty());
}

TEST(TouchTest, ASecondFingerCancelsWhatTheFirstBegan)
{
    DispatchBench bench;
    DragTool& tool = bench.addDragTool();
    bench.send(touch(QEvent::TouchBegin, {{1, {20, 40}, kDown}}));
    bench.send(touch(QEvent::TouchUpdate, {{1, {20, 40}, kStill}, {2, {40, 40}, kDown}}));
    EXPECT_TRUE(tool.isIdle());
    bench.send(touch(QEvent::TouchEnd, {{1, {20, 40}, kUp}, {2, {40, 40}, kUp}}));
    bench.log.clear();
    bench.send(touch(QEvent::TouchBegin, {{3, {20, 40}, kDown}}));
    bench.send(touch(QEvent::TouchEnd, {{3, {20, 40}, kUp}}));
    EXPECT_THAT(bench.log, ElementsAre("press", StartsWith("MousePressEvent"),
                                       StartsWith("MouseReleaseEvent")));
    EXPECT_TRUE(tool.isIdle());
}

} // namespace

} // namespace Tova2
