#include "events/probetool.h"
#include "events/recordinghandler.h"
#include "events/toolstack.h"

#include "tova/events/autoscroller.h"
#include "tova/events/eventcanvas.h"
#include "tova/events/gestureclock.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

using namespace Tova2;
using namespace std::chrono_literals;
using State = Autoscroller::State;

/// 100 x 100 pixels of a scene at scale 1.
class ScrolledCanvas final : public FakeCanvas, public AutoscrollView {
public:
    Vetra::Transform getViewportTransform() const override
    {
        return {1, 0, 0, 1, -scrolled.x, -scrolled.y};
    }
    Vetra::GLRect<double> autoscrollArea() const override { return {0, 0, 100, 100}; }
    bool scrollBy(const Vetra::GLPoint<double>& step) override
    {
        scrolled = {scrolled.x + step.x, scrolled.y + step.y};
        return !isAtLimit;
    }
    void deliver(MouseEvent& event) override
    {
        ++delivered;
        EXPECT_TRUE(event.isSyntheticAutoscrollEvent());
        EXPECT_EQ(event.canvas(), this);
        EXPECT_EQ(event.scenePos().x, event.asGLMouseEvent2().position.x + scrolled.x);
        if (onDeliver)
            onDeliver();
    }

    Vetra::GLPoint<double> scrolled;
    int delivered = 0;
    bool isAtLimit = false;
    std::function<void()> onDeliver;
};

class AutoscrollerTest : public testing::Test {
protected:
    AutoscrollerTest()
    {
        auto clock = std::make_unique<ManualClock>();
        m_clock = clock.get();
        m_autoscroller = std::make_unique<Autoscroller>(std::move(clock));
        m_stack.addTool(m_tool.get());
    }
    void move(int x, int y = 50)
    {
        Vetra::GLMouseEvent2 event;
        event.widget = &m_canvas;
        event.position = {x, y};
        m_autoscroller->pointerMoved(m_canvas, m_canvas, event);
    }
    void beginDrag(int x)
    {
        move(x);
        m_tool->becomeActive();
    }
    /// To the edge, and until it scrolls.
    void scrollAtRightEdge()
    {
        beginDrag(50);
        move(90);
        m_clock->advance(500ms);
        ASSERT_EQ(m_autoscroller->state(), State::Autoscroll);
    }
    double scrolledDuring(std::chrono::milliseconds time)
    {
        const double before = m_canvas.scrolled.x;
        m_clock->advance(time);
        return m_canvas.scrolled.x - before;
    }

    ProbeTool::Log m_log;
    Vetra::Holder<ProbeTool> m_tool{new ProbeTool(m_log, "drag")};
    ToolStack m_stack{nullptr, nullptr};
    ScrolledCanvas m_canvas;
    ManualClock* m_clock = nullptr;
    std::unique_ptr<Autoscroller> m_autoscroller;
};

TEST_F(AutoscrollerTest, WatchesOnlyWhileAToolIsActive)
{
    move(99);
    EXPECT_STREQ(m_autoscroller->stateName(), "Idle");
    move(50);
    m_tool->becomeActive();
    EXPECT_STREQ(m_autoscroller->stateName(), "Alert");
    EXPECT_FALSE(m_clock->isRunning());
    m_tool->becomeIdle();
    EXPECT_STREQ(m_autoscroller->stateName(), "Idle");
}

TEST_F(AutoscrollerTest, ScrollsOnceThePointerRestsAtTheEdge)
{
    beginDrag(50);
    move(81);
    for (int x = 82; x < 90; ++x) { // 20 px/s
        m_clock->advance(50ms);
        move(x);
    }
    m_clock->advance(100ms);
    EXPECT_EQ(m_autoscroller->state(), State::Alert);
    m_clock->advance(490ms);
    EXPECT_EQ(m_autoscroller->state(), State::Alert);
    m_clock->advance(10ms);
    EXPECT_EQ(m_autoscroller->state(), State::Autoscroll);
    m_clock->advance(100ms);
    EXPECT_EQ(m_canvas.delivered, 10);
    EXPECT_GT(m_canvas.scrolled.x, 0);
    EXPECT_EQ(m_canvas.scrolled.y, 0);
}

TEST_F(AutoscrollerTest, SpeedGrowsWithTheDistanceUpToTheLongestStep)
{
    scrollAtRightEdge();
    double slower = 0;
    for (const int x : {85, 95, 99, 120, 150}) {
        move(x);
        const double speed = scrolledDuring(100ms);
        EXPECT_GT(speed, slower) << x;
        slower = speed;
    }
    move(std::numeric_limits<int>::max());
    EXPECT_DOUBLE_EQ(scrolledDuring(100ms), 10 * 250);
    move(-50, -50);
    EXPECT_LT(scrolledDuring(100ms), 0);
    EXPECT_LT(m_canvas.scrolled.y, 0);
}

TEST_F(AutoscrollerTest, PausesInsideAndResumesAtOnceOnlyWithinTheTimeout)
{
    scrollAtRightEdge();
    move(50);
    EXPECT_STREQ(m_autoscroller->stateName(), "Pause");
    EXPECT_EQ(scrolledDuring(740ms), 0);
    move(90);
    EXPECT_STREQ(m_autoscroller->stateName(), "Autoscroll");
    move(50);
    m_clock->advance(760ms);
    EXPECT_STREQ(m_autoscroller->stateName(), "Alert");
    EXPECT_FALSE(m_clock->isRunning());
    move(90);
    EXPECT_STREQ(m_autoscroller->stateName(), "Alert");
}

TEST_F(AutoscrollerTest, DragThatBeginsAtTheEdgeHasToGoOnTowardsIt)
{
    beginDrag(90);
    move(92);
    m_clock->advance(2s);
    EXPECT_EQ(m_autoscroller->state(), State::Alert);
    move(94);
    m_clock->advance(500ms);
    EXPECT_EQ(m_autoscroller->state(), State::Autoscroll);
    move(60); // The region has grown back.
    move(90);
    EXPECT_EQ(m_autoscroller->state(), State::Autoscroll);
}

TEST_F(AutoscrollerTest, StartsAtOnceBeyondTheEdge)
{
    beginDrag(50);
    move(101);
    EXPECT_EQ(m_autoscroller->state(), State::Autoscroll);
    m_canvas.isAtLimit = true;
    m_clock->advance(100ms);
    EXPECT_EQ(m_canvas.delivered, 0);
}

TEST_F(AutoscrollerTest, EndsWithTheToolTheViewOrAnException)
{
    const std::function<void()> ends[] = {
        [this] { m_tool->becomeIdle(); }, [this] { m_stack.removeTool(m_tool.get()); },
        [this] { m_stack.clearToolStack(); }, [this] { m_autoscroller->forgetView(m_canvas); },
        [] { throw 1; }};
    for (const auto& end : ends) {
        m_stack.addTool(m_tool.get());
        scrollAtRightEdge();
        m_canvas.delivered = 0;
        m_canvas.onDeliver = end;
        try {
            m_clock->advance(100ms);
        } catch (int) {
        }
        m_clock->advance(100ms);
        EXPECT_EQ(m_canvas.delivered, 1);
        EXPECT_NE(m_autoscroller->state(), State::Autoscroll);
        m_tool->becomeIdle();
    }
}

TEST_F(AutoscrollerTest, StandInsTakeOverInAnyOrderAndTheDragsTypeMayChange)
{
    auto newer = std::make_unique<Autoscroller>(std::make_unique<ManualClock>());
    EXPECT_EQ(&Autoscroller::instance(), newer.get());
    m_autoscroller.reset(); // the older one first
    m_tool->becomeActive();
    EXPECT_EQ(newer->state(), State::Alert);
    m_tool->scrollType = Tool::EAutoScrollType::None;
    m_tool->becomeIdle();
    EXPECT_EQ(newer->state(), State::Idle) << "scrolls on though the drag is over";
    m_tool->scrollType = Tool::EAutoScrollType::Default;
    newer.reset();
    m_tool->becomeActive();
    EXPECT_EQ(Autoscroller::instance().state(), State::Alert) << "the process's own is back";
    m_tool->becomeIdle();
}

TEST_F(AutoscrollerTest, SettingsRefuseWhatMakesNoSense)
{
    EXPECT_EQ(m_autoscroller->setting("RegionThickness"), 20);
    EXPECT_EQ(m_autoscroller->setting("Nothing"), std::nullopt);
    EXPECT_FALSE(m_autoscroller->setSetting("Nothing", 1));
    EXPECT_FALSE(m_autoscroller->setSetting("RepeatInterval", 0));
    EXPECT_FALSE(m_autoscroller->setSetting("MaxStep", std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(m_autoscroller->setSetting("SpeedCheckTimeout", 0));
    beginDrag(50);
    move(90);
    m_clock->advance(10ms);
    EXPECT_EQ(m_autoscroller->state(), State::Autoscroll);
}

} // namespace
