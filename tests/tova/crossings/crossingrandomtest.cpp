#include "crossings/crossingmodel.h"

#include "nodes/crossings/pathintersectionsworker.h"

#include <gmock/gmock.h>

#include <random>

namespace Tova2 {

namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInf = std::numeric_limits<double>::infinity();

/// Scenes of few coordinates, so that pieces overlap, share corners and end on each other.
class RandomScene {
public:
    RandomScene(unsigned seed, int pathCount, int width)
        : m_random(seed), m_width(width), m_isFractional(seed % 2)
    {
        for (int i = 0; i < pathCount; ++i)
            m_worker.nodeUpdated(model.path(model.add(points(), below(3), below(2))).ref);
    }

    void edit();
    void runSome() { m_manager.runSlice(Host::TaskBudget::steps(1 + below(30))); }
    void runAll(int stepsASlice)
    {
        while (m_manager.runSlice(stepsASlice ? Host::TaskBudget::steps(stepsASlice)
                                              : Host::TaskBudget()))
            continue;
    }
    bool isAllFound() const { return m_worker.allFound(); }
    int below(int end) { return static_cast<int>(m_random() % end); }

    CrossingModel model;
    PublishedCrossings published;

private:
    double coordinate()
    {
        const double value = below(m_width) - m_width / 3;
        return m_isFractional ? value / 3 + (below(4) == 0 ? 0.1 : 0) : value;
    }
    CrossingModel::Points points();

    std::mt19937 m_random;
    int m_width;
    bool m_isFractional;
    Host::CooperativeTaskManager m_manager{[] { return std::chrono::nanoseconds(0); }};
    PathIntersectionsWorker m_worker{model, published, m_manager};
};

CrossingModel::Points RandomScene::points()
{
    CrossingModel::Points made{{coordinate(), coordinate()}};
    for (int left = below(7); left > 0; --left) {
        Vetra::GLPoint<double> next = made.back();
        const int kind = below(20);
        if (kind < 9)
            next.x = coordinate();
        else if (kind < 18)
            next.y = coordinate();
        else if (kind == 18)
            next = {coordinate(), coordinate()};
        else if (below(4) == 0)
            next.y = (below(2) ? 1 : -1) * (below(2) ? kNan : kInf);
        made.push_back(next);
    }
    return made;
}

void RandomScene::edit()
{
    const auto i = static_cast<std::size_t>(below(static_cast<int>(model.size())));
    ModelPath& path = model.path(i);
    if (!path.ref.isValid())
        return;
    switch (below(8)) {
    case 0:
        model.takeOut(i);
        return m_worker.nodeRemoved(path.ref);
    case 1:
        path.isVisible = !path.isVisible;
        break;
    case 2:
        path.path.z = below(3);
        break;
    case 3:
        m_worker.nodeUpdated(model.path(model.add(points(), below(3))).ref);
        return;
    case 4:
        if (below(4) > 0)
            break;
        model.kill(i);
        return below(2) ? m_worker.nodeRemoved(path.ref) : m_worker.nodeUpdated(path.ref);
    default:
        path.path.points = points();
    }
    if (!path.isIn)
        model.putBack(i);
    m_worker.nodeUpdated(path.ref);
}

::testing::AssertionResult equalsModel(RandomScene& scene)
{
    for (std::size_t i = 0; i < scene.model.size(); ++i) {
        const WeakRef& ref = scene.model.path(i).ref;
        if (ref.isValid() && scene.published.of(ref) != scene.model.crossingsOf(i)) {
            return testing::AssertionFailure()
                   << "path " << i << " has " << testing::PrintToString(scene.published.of(ref))
                   << " instead of " << testing::PrintToString(scene.model.crossingsOf(i));
        }
    }
    return testing::AssertionSuccess();
}

TEST(CrossingRandomTest, SmallScenesEqualAComparisonOfAllPairs)
{
    for (unsigned seed = 0; seed < 2000; ++seed) {
        RandomScene scene(seed, 1 + seed % 12, 4 + seed % 15);
        scene.runAll(seed % 5);
        ASSERT_TRUE(scene.isAllFound() && equalsModel(scene)) << "seed " << seed;
    }
}

TEST(CrossingRandomTest, SoDoEditedOnesWhateverTheSlices)
{
    for (unsigned seed = 0; seed < 400; ++seed) {
        RandomScene scene(seed, 1 + seed % 12, 4 + seed % 15);
        for (int round = 0; round < 10; ++round) {
            for (int edits = scene.below(6); edits > 0; --edits) {
                scene.edit();
                if (scene.below(2))
                    scene.runSome();
            }
            scene.runAll(scene.below(4));
            ASSERT_TRUE(scene.isAllFound() && equalsModel(scene))
                << "seed " << seed << " round " << round;
        }
    }
}

TEST(CrossingRandomTest, SoDoLargeOnesThroughWholeAndPartialPasses)
{
    for (unsigned seed = 0; seed < 4; ++seed) {
        RandomScene scene(seed, 220, 60);
        scene.runAll(0);
        ASSERT_TRUE(equalsModel(scene)) << "seed " << seed;
        for (int round = 0; round < 6; ++round) {
            for (int edits = round % 2 ? 3 : 90; edits > 0; --edits) {
                scene.edit();
                if (edits % 16 == 0)
                    scene.runSome();
            }
            scene.runAll(7);
            ASSERT_TRUE(scene.isAllFound() && equalsModel(scene))
                << "seed " << seed << " round " << round;
        }
    }
}

} // namespace

} // namespace Tova2
