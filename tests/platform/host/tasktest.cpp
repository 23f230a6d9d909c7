#include "host/cooperativetaskmanager.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <stdexcept>

namespace Host {

namespace {

using testing::ElementsAre;
using Log = std::vector<std::string>;

/// Logs its name at each step; `atStep` is called at each one with its number.
class StepTask final : public Task {
public:
    StepTask(Log& log, std::string name, int steps, std::function<void(int)> atStep = {})
        : m_log(log), m_name(std::move(name)), m_steps(steps), m_atStep(std::move(atStep))
    {}

    bool run(TaskBudget& budget) override
    {
        while (m_done < m_steps) {
            m_log.push_back(m_name);
            ++m_done;
            if (m_atStep)
                m_atStep(m_done);
            if (budget.isSpentAfterStep())
                break;
        }
        return m_done == m_steps;
    }

private:
    Log& m_log;
    std::string m_name;
    int m_steps;
    int m_done = 0;
    std::function<void(int)> m_atStep;
};

class TaskTest : public testing::Test {
protected:
    std::shared_ptr<OrderedTaskSession> session(const std::string& name, int taskCount, int steps,
                                                const std::function<void(int)>& atStep = {})
    {
        const auto made = std::make_shared<OrderedTaskSession>(name);
        for (int i = 0; i < taskCount; ++i)
            made->add(std::make_shared<StepTask>(m_log, name + std::to_string(i), steps, atStep));
        return made;
    }

    Log m_log;
    std::chrono::nanoseconds m_now{0};
    std::unique_ptr<CooperativeTaskManager> m_manager =
        std::make_unique<CooperativeTaskManager>([this] { return m_now; });
};

TEST_F(TaskTest, TasksFollowEachOtherWhateverTheSlices)
{
    const Log expected{"a0", "a0", "a0", "a1", "a1", "a1"};
    for (int steps = 1; steps < 9; ++steps) {
        m_log.clear();
        m_manager->start(session("a", 2, 3));
        int slices = 1;
        while (m_manager->runSlice(TaskBudget::steps(steps)))
            ++slices;
        EXPECT_EQ(m_log, expected) << steps;
        EXPECT_GE(slices, 6 / steps) << steps;
    }
}

TEST_F(TaskTest, SessionsTakeTurnsUnlessOneIsToBeFinished)
{
    const auto urgent = session("c", 1, 2);
    m_manager->start(session("a", 1, 2));
    m_manager->start(session("b", 1, 2));
    m_manager->start(urgent);
    m_manager->runSlice(TaskBudget::steps(1));
    m_manager->finish(urgent);
    EXPECT_EQ(m_manager->sessionCount(), 2u);
    while (m_manager->runSlice(TaskBudget::steps(1)))
        continue;
    EXPECT_THAT(m_log, ElementsAre("a0", "c0", "c0", "b0", "a0", "b0"));
}

TEST_F(TaskTest, ASliceEndsWithItsTime)
{
    m_manager->setSliceBudget(std::chrono::milliseconds(4));
    m_manager->start(
        session("a", 1, 1000, [this](int) { m_now += std::chrono::microseconds(10); }));
    EXPECT_TRUE(m_manager->runSlice());
    EXPECT_GE(m_log.size(), 400u);
    EXPECT_LT(m_log.size(), 400u + TaskBudget::kStride);
    m_manager->runAll();
    EXPECT_EQ(m_log.size(), 1000u);
}

TEST_F(TaskTest, ACancelledSessionRunsNothingMore)
{
    const auto doomed = session("a", 3, 2);
    m_manager->start(doomed);
    m_manager->runSlice(TaskBudget::steps(1));
    doomed->cancel();
    doomed->add(std::make_shared<StepTask>(m_log, "late", 1));
    EXPECT_FALSE(m_manager->runSlice());
    EXPECT_THAT(m_log, ElementsAre("a0"));
}

TEST_F(TaskTest, ATaskMayCancelItsSessionOrEndTheManager)
{
    std::shared_ptr<OrderedTaskSession> own = session("a", 2, 2, [&](int) { own->cancel(); });
    m_manager->start(own);
    m_manager->runAll();
    EXPECT_THAT(m_log, ElementsAre("a0", "a0")); // the task itself goes on to the end of its slice
    m_manager->start(session("b", 2, 1, [this](int) { m_manager.reset(); }));
    EXPECT_FALSE(m_manager->runSlice());
    EXPECT_THAT(m_log, ElementsAre("a0", "a0", "b0"));
}

TEST_F(TaskTest, ATaskMayRunTheManagerAndStartSessions)
{
    m_manager->start(session("a", 1, 2, [this](int step) {
        m_manager->runAll();
        if (step == 1)
            m_manager->start(session("b", 1, 1));
    }));
    m_manager->runAll();
    EXPECT_THAT(m_log, ElementsAre("a0", "a0", "b0"));
}

TEST_F(TaskTest, AnExceptionEndsItsSessionOnlyAndIsReported)
{
    int reports = 0;
    m_manager->setErrorReporter([&](std::exception_ptr) {
        ++reports;
        throw std::runtime_error("the reporter fails as well");
    });
    const auto failing = session("a", 2, 2, [](int) { throw std::runtime_error("no"); });
    m_manager->start(failing);
    m_manager->start(session("b", 1, 1));
    m_manager->runAll();
    EXPECT_THAT(m_log, ElementsAre("a0", "b0"));
    EXPECT_TRUE(failing->isCancelled());
    EXPECT_EQ(reports, 1);
}

TEST_F(TaskTest, ASessionsOwnReporterComesFirst)
{
    int own = 0, common = 0;
    const auto failing = session("a", 1, 1, [](int) { throw 5; });
    failing->setErrorReporter([&](std::exception_ptr) { ++own; });
    m_manager->setErrorReporter([&](std::exception_ptr) { ++common; });
    m_manager->start(failing);
    m_manager->runAll();
    EXPECT_EQ(own, 1);
    EXPECT_EQ(common, 0);
}

TEST_F(TaskTest, TheEventLoopRunsSlicesAndServesOthersBetween)
{
    int argc = 0;
    QCoreApplication application(argc, nullptr);
    CooperativeTaskManager manager;
    manager.setSliceBudget(std::chrono::nanoseconds(1));
    int turnsOfOthers = 0;
    QTimer other;
    QObject::connect(&other, &QTimer::timeout, [&] { ++turnsOfOthers; });
    other.start(0);
    QEventLoop loop;
    manager.start(session("a", 50, 1));
    const auto last = session("b", 1, 1, [&](int) { loop.quit(); });
    last->setErrorReporter({});
    while (manager.sessionCount() > 0)
        QCoreApplication::processEvents();
    EXPECT_EQ(m_log.size(), 50u);
    EXPECT_GE(turnsOfOthers, 40);
    manager.start(last); // after an idle time it starts anew
    loop.exec();
    EXPECT_EQ(m_log.back(), "b0");
}

TEST_F(TaskTest, AManagerMayDieInASliceOfTheEventLoop)
{
    int argc = 0;
    QCoreApplication application(argc, nullptr);
    auto manager = std::make_unique<CooperativeTaskManager>();
    manager->start(session("a", 3, 1, [&](int) { manager.reset(); }));
    for (int turn = 0; turn < 10; ++turn)
        QCoreApplication::processEvents();
    EXPECT_THAT(m_log, ElementsAre("a0"));
}

} // namespace

} // namespace Host
