#include "widget/dispatchbench.h"

#include "support/rows.h"

namespace Tova2 {

namespace {

struct Turn {
    int angle = 0;
    int pixels = 0;
    Qt::ScrollPhase phase = Qt::NoScrollPhase;
    bool hasCtrl = false;
    int waitMs = 0; ///< before it
};

struct WheelRow : NamedRow {
    std::vector<Turn> turns;
    std::string heard; ///< notches as + and -, gestures as [ , pixels or *factor, ]
};

class WheelTest : public testing::TestWithParam<WheelRow> {};

constexpr Vetra::GLPoint<double> kPlace{20.5, 40.25}; // of which wheels tell whole pixels

/// Shorthand for what tools hear.
class ShortHand final : public EventHandler {
public:
    void handleWheelEvent(MouseEvent& event) override
    {
        EXPECT_EQ(event.canvas()->scenePointToViewPoint(event.scenePos()), kPlace);
        text += event.asGLMouseEvent2().delta == 120 ? '+' : '-';
    }
    void handlePanGestureEvent(PanGestureEvent& event) override
    {
        add(event.gestureState, ' ' + std::to_string(int(event.delta.y)));
    }
    void handlePinchGestureEvent(PinchGestureEvent& event) override
    {
        EXPECT_EQ(event.centerPoint, kPlace);
        add(event.gestureState, event.scaleFactor > 1 ? " in" : " out");
    }
    std::string text;

private:
    void add(Vetra::GestureState state, const std::string& update)
    {
        if (state == Vetra::GestureState::GestureUpdated)
            text += update;
        else
            text += state == Vetra::GestureState::GestureStarted ? '[' : ']';
    }
};

TEST_P(WheelTest, TellsNotchesFromGestures)
{
    DispatchBench bench;
    ShortHand ear;
    bench.scene->clearToolStack();
    auto* const tool = new UnconsumedEventTool;
    tool->unconsumedEmitter().connect([&](Event& event) { event.accept(ear); });
    bench.scene->addTool(tool);
    bench.mouse(QEvent::MouseMove, {kPlace.x, kPlace.y});
    for (const Turn& turn : GetParam().turns) {
        bench.clock->advance(std::chrono::milliseconds(turn.waitMs));
        EXPECT_TRUE(bench.send(QWheelEvent({21, 40}, {20, 40}, {0, turn.pixels}, {0, turn.angle},
                                           {}, turn.hasCtrl ? Qt::ControlModifier : Qt::NoModifier,
                                           turn.phase, false)));
    }
    bench.clock->advance(std::chrono::seconds(1));
    EXPECT_EQ(ear.text, GetParam().heard);
}

const WheelRow kRows[]{
    {{"WholeNotches"}, {{120}, {-120}}, "+-"},
    {{"AFastWheelHasEachNotch"}, {{360}}, "+++"},
    {{"ABrokenDeviceIsBounded"}, {{2'000'000'000}}, "++++++++++++++++"},
    {{"FinePartsAddUp"}, {{50}, {50}, {50}, {50}, {50}}, "++"},
    {{"TurningBackDropsTheRest"}, {{110}, {-110}, {-10}}, "-"},
    {{"APauseDropsTheRest"}, {{110}, {110, 0, Qt::NoScrollPhase, false, 600}, {10}}, "+"},
    {{"PhasesMakeAPanThatGlidesOn"},
     {{0, 0, Qt::ScrollBegin},
      {16, 8, Qt::ScrollUpdate},
      {10, 5, Qt::ScrollMomentum},
      {0, 0, Qt::ScrollEnd}},
     "[ 8 5]"},
    {{"ALostEndIsMadeGoodAndTheGlideAfterItIsStale"},
     {{10, 5, Qt::ScrollUpdate}, {10, 5, Qt::ScrollMomentum, false, 2000}},
     "[ 5]"},
    {{"PixelsWithoutPhasesEndByAPause"},
     {{4, 2}, {4, 2}, {4, 3, Qt::NoScrollPhase, false, 300}},
     "[ 2 2][ 3]"},
    {{"CtrlPinchesAndAGlideStaysWhatItWas"},
     {{20, 10, Qt::ScrollBegin, true},
      {-20, -10, Qt::ScrollMomentum, false},
      {20, 10, Qt::ScrollUpdate, false},
      {0, 0, Qt::ScrollEnd}},
     "[ in out][ 10]"},
};
INSTANTIATE_TEST_SUITE_P(Dispatcher, WheelTest, testing::ValuesIn(kRows), rowName);

} // namespace

} // namespace Tova2
