#include "crossings/crossingmodel.h"

#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/pathintersectionsworker.h"

#include "vetra/error.h"

#include <gmock/gmock.h>

#include <random>
#include <sstream>

namespace Tova2 {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class CrossingWorkerTest : public testing::Test {
protected:
    using Points = CrossingModel::Points;

    WeakRef add(Points points, double z = 0, double parentZ = 0)
    {
        const std::size_t i = m_model.add(std::move(points), z, parentZ);
        m_worker->nodeUpdated(m_model.path(i).ref);
        return m_model.path(i).ref;
    }
    void runAll() { m_manager.runAll(); }
    void compareWithModel(const std::string& what)
    {
        for (std::size_t i = 0; i < m_model.size(); ++i) {
            if (m_model.path(i).ref.isValid()) {
                ASSERT_EQ(m_published.of(m_model.path(i).ref), m_model.crossingsOf(i))
                    << what << ", path " << i;
            }
        }
    }

    CrossingModel m_model;
    PublishedCrossings m_published;
    Host::CooperativeTaskManager m_manager{[] { return std::chrono::nanoseconds(0); }};
    std::unique_ptr<PathIntersectionsWorker> m_worker =
        std::make_unique<PathIntersectionsWorker>(m_model, m_published, m_manager);
};

TEST_F(CrossingWorkerTest, ACrossingHasARecordOnEachPath)
{
    const WeakRef across = add({{0, 10}, {50, 10}});
    const WeakRef down = add({{20, 100}, {20, -3}}, 1);
    runAll();
    const PathIntersection first{20, 10, 0, across, {13, 20, 90, 30}};
    const PathIntersection second{20, 10, 1, down, {13, 20, 90, 30}};
    EXPECT_THAT(m_published.of(down), ElementsAre(first));
    EXPECT_THAT(m_published.of(across), ElementsAre(second));
    EXPECT_EQ(m_worker->crossingCount(), 1u);
    EXPECT_TRUE(m_worker->allFound());
}

TEST_F(CrossingWorkerTest, ThePlaceOfANodeThatLeftIsGivenToOneOtherOnly)
{
    const auto updateAll = [this] {
        for (std::size_t i = 1; i < 200; ++i)
            m_worker->nodeUpdated(m_model.path(i).ref);
        runAll();
    };
    for (int i = 0; i < 200; ++i)
        add({{0, 10.0 * i + 5}, {1000, 10.0 * i + 5}});
    m_model.takeOut(0);
    m_worker->nodeRemoved(m_model.path(0).ref);
    updateAll();
    updateAll();
    add({{20, 0}, {20, 30}});
    add({{40, 0}, {40, 50}});
    runAll();
    compareWithModel("after whole passes");
}

TEST_F(CrossingWorkerTest, AnEditTouchesOnlyThoseItConcerns)
{
    for (int i = 0; i < 50; ++i)
        add({{0, 10.0 * i + 5}, {1000, 10.0 * i + 5}});
    const WeakRef column = add({{20, 0}, {20, 20}});
    runAll();
    EXPECT_THAT(m_published.of(column), SizeIs(2));
    m_model.path(50).path.points = {{20, 10}, {20, 30}}; // leaves one, keeps one, gains one
    m_worker->nodeUpdated(column);
    EXPECT_FALSE(m_worker->allFound());
    runAll();
    EXPECT_EQ(m_published.lastSize, 4u);
    compareWithModel("moved");
}

TEST_F(CrossingWorkerTest, AnEditThatConcernsManyIsManySteps)
{
    constexpr int kCount = 40;
    for (int i = 0; i < kCount; ++i) {
        add({{0, 10.0 * i + 5}, {1000, 10.0 * i + 5}});
        add({{10.0 * i + 5, 0}, {10.0 * i + 5, 1000}});
    }
    runAll();
    m_worker->nodeUpdated(m_model.path(0).ref);
    int steps = 1;
    while (m_manager.runSlice(Host::TaskBudget::steps(1)))
        ++steps;
    EXPECT_GT(steps, kCount * kCount) << "one for each crossing in the lists that change";
}

// Whatever happens to a path between the slices of a pass, what is reported is what was or what is;
// of one that has left, only what is.
enum class Reported { Now, NowOrBefore, Anything };
struct MidPassCase {
    const char* name;
    Reported reported; ///< until the end
    void (*act)(CrossingModel& model, PathIntersectionsWorker& worker);
};
std::string midPassName(const testing::TestParamInfo<MidPassCase>& info)
{
    return info.param.name;
}
class MidPassTest : public CrossingWorkerTest, public testing::WithParamInterface<MidPassCase> {};

TEST_P(MidPassTest, AtAnyMomentWhatIsReportedIsWhole)
{
    bool isThrough = false;
    for (int moment = 0; !isThrough; ++moment) {
        CrossingModel model;
        PublishedCrossings published;
        PathIntersectionsWorker worker(model, published, m_manager);
        for (int i = 0; i < 6; ++i) {
            worker.nodeUpdated(model.path(model.add({{0, 10.0 * i}, {90, 10.0 * i}})).ref);
            worker.nodeUpdated(model.path(model.add({{10.0 * i, -5}, {10.0 * i, 99}})).ref);
        }
        using Lists = std::vector<std::vector<PathIntersection>>;
        const auto listsOf = [&](const auto& of) {
            Lists lists;
            for (std::size_t i = 0; i < model.size(); ++i) {
                if (model.path(i).isIn)
                    lists.push_back(of(i));
            }
            return lists;
        };
        const auto expected = [&](std::size_t i) { return model.crossingsOf(i); };
        const auto found = [&](std::size_t i) { return published.of(model.path(i).ref); };
        for (int i = 0; i < moment; ++i)
            m_manager.runSlice(Host::TaskBudget::steps(1));
        const Lists before = listsOf(expected);
        isThrough = worker.allFound();
        GetParam().act(model, worker);
        published.onFound = [&] {
            const Lists reported = listsOf(found);
            if (GetParam().reported == Reported::Anything)
                return;
            EXPECT_TRUE(reported == listsOf(expected) ||
                        (GetParam().reported == Reported::NowOrBefore && reported == before))
                << moment;
            std::size_t records = 0;
            for (const auto& list : reported)
                records += list.size();
            EXPECT_EQ(worker.crossingCount() * 2, records) << moment;
        };
        m_manager.runAll();
        EXPECT_EQ(listsOf(found), listsOf(expected)) << moment;
    }
}
INSTANTIATE_TEST_SUITE_P(
    Crossings, MidPassTest,
    testing::Values(MidPassCase{"Moved", Reported::NowOrBefore,
                                [](CrossingModel& model, PathIntersectionsWorker& worker) {
                                    model.path(3).path.points = {{25, -5}, {25, 35}};
                                    worker.nodeUpdated(model.path(3).ref);
                                }},
                    MidPassCase{"Removed", Reported::Now,
                                [](CrossingModel& model, PathIntersectionsWorker& worker) {
                                    model.takeOut(3);
                                    worker.nodeRemoved(model.path(3).ref);
                                }},
                    MidPassCase{"Hidden", Reported::NowOrBefore,
                                [](CrossingModel& model, PathIntersectionsWorker& worker) {
                                    model.path(3).isVisible = false;
                                    worker.nodeUpdated(model.path(3).ref);
                                }},
                    MidPassCase{"RemovedAndPutBack", Reported::Anything,
                                [](CrossingModel& model, PathIntersectionsWorker& worker) {
                                    worker.nodeRemoved(model.path(3).ref);
                                    model.putBack(3);
                                    worker.nodeUpdated(model.path(3).ref);
                                }},
                    MidPassCase{"DeadAndRemoved", Reported::Now,
                                [](CrossingModel& model, PathIntersectionsWorker& worker) {
                                    model.kill(3);
                                    worker.nodeRemoved(model.path(3).ref);
                                }},
                    MidPassCase{"DeadWithoutNotice", Reported::Now,
                                [](CrossingModel& model, PathIntersectionsWorker& worker) {
                                    model.kill(3);
                                    worker.nodeUpdated(model.path(0).ref);
                                }}),
    midPassName);

TEST_F(CrossingWorkerTest, TheWorkerMayDieOrForgetAtAnyMoment)
{
    for (int moment = 0; moment < 160; ++moment) {
        for (int i = 0; i < 5; ++i) {
            add({{0, 10.0 * i}, {90, 10.0 * i}});
            add({{10.0 * i, -5}, {10.0 * i, 99}});
        }
        for (int i = 0; i < moment; ++i)
            m_manager.runSlice(Host::TaskBudget::steps(1));
        const int updates = m_published.updateCount;
        if (moment % 2)
            m_worker = std::make_unique<PathIntersectionsWorker>(m_model, m_published, m_manager);
        else
            m_worker->clear();
        runAll();
        EXPECT_EQ(m_published.updateCount, updates);
    }
}

TEST_F(CrossingWorkerTest, ItMayDieWhileItPublishes)
{
    add({{0, 10}, {90, 10}});
    add({{10, 0}, {10, 99}});
    m_published.onFound = [this] { m_worker.reset(); };
    runAll();
    EXPECT_EQ(m_published.updateCount, 1);
}

TEST_F(CrossingWorkerTest, WhatAnUpdateCausesIsFoundByTheNextPass)
{
    const WeakRef row = add({{0, 10}, {90, 10}});
    add({{10, 0}, {10, 99}});
    m_published.onFound = [&] {
        if (m_model.size() < 4)
            add({{10.0 * m_model.size(), 0}, {10.0 * m_model.size(), 99}});
    };
    runAll();
    EXPECT_THAT(m_published.of(row), SizeIs(3));
}

TEST_F(CrossingWorkerTest, ATableThatWouldBeTooLongEndsThePassWithAnError)
{
    std::string error;
    m_manager.setErrorReporter([&](std::exception_ptr raised) {
        try {
            std::rethrow_exception(raised);
        } catch (const Vetra::Error& e) {
            error = e.key();
        }
    });
    m_worker->state().tableLimit = 20;
    for (int i = 0; i < 8; ++i)
        add({{0, 10.0 * i}, {90, 10.0 * i}});
    const WeakRef column = add({{10, -9}, {10, 5}});
    runAll();
    EXPECT_EQ(error, "");
    for (int i = 0; i < 3; ++i) {
        add({{20.0 + i, -9}, {20.0 + i, 95}});
        runAll();
    }
    EXPECT_EQ(error, "list<T> too long");
    EXPECT_FALSE(m_worker->allFound());
    m_worker->state().tableLimit = 1000; // and what was accepted is not lost
    m_worker->nodeUpdated(column);
    runAll();
    compareWithModel("after the error");
}

TEST_F(CrossingWorkerTest, TheDumpsListTheTables)
{
    add({{0, 10}, {90, 10}, {90, 99}}, 4);
    runAll();
    std::ostringstream levels, tables;
    m_worker->dumpChangeLevels(levels);
    m_worker->dumpTables(tables);
    EXPECT_THAT(levels.str(), testing::StartsWith("--------------------\nNODE CHANGE LEVELS 1 / "));
    EXPECT_THAT(levels.str(), HasSubstr("\n    Tova2.RectNode "));
    EXPECT_THAT(levels.str(), testing::EndsWith(" -> 1\n--------------------\n"));
    EXPECT_THAT(tables.str(), HasSubstr("VERTICALS 1\n    90 -> (90, 10) - (90, 99) z 0 / 4"));
    EXPECT_THAT(tables.str(), HasSubstr("START EVENTS 1\n    0 -> "));
    EXPECT_THAT(tables.str(), HasSubstr("END EVENTS 1\n    90 -> "));
}

} // namespace

} // namespace Tova2
