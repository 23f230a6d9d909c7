#include "router.h"

#include "support/rows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

namespace TovaView {
namespace {

constexpr Rect tailFrame{0, 0, 60, 40};

ConnectorEnd endOf(const Rect& frame, const Point& outward, double gap = 0)
{
    const Point half{frame.width / 2, frame.height / 2};
    const Point port = frame.center() + Point{outward.x * half.x, outward.y * half.y};
    return {0, port, outward, gap, 0, frame};
}

void expectUpright(const Points& way)
{
    ASSERT_GE(way.size(), 2u);
    for (std::size_t i = 1; i < way.size(); ++i)
        EXPECT_NE(way[i - 1].x == way[i].x, way[i - 1].y == way[i].y) << "piece " << i;
}

void expectLeaves(const Points& way, const ConnectorEnd& end)
{
    const Point first = way[1] - way[0];
    EXPECT_GT(first.x * end.outward.x + first.y * end.outward.y, 0);
    EXPECT_NEAR(std::hypot(way[0].x - end.lineEnd().x, way[0].y - end.lineEnd().y), 0, 0.5);
}

/// Whether an upright piece has more than a point inside.
bool entersAnywhere(const Points& way, const Rect& rect)
{
    for (std::size_t i = 1; i < way.size(); ++i)
        if (Rect::fromCorners(way[i - 1], way[i]).intersects(rect.grown(-0.1)))
            return true;
    return false;
}

TEST(RouterTest, AnyTwoEndsAreLedAtRightAnglesAroundTheirBlocks)
{
    const Point sides[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    std::mt19937 random(7);
    std::uniform_real_distribution<double> place(-300, 300);
    for (int round = 0; round < 400; ++round) {
        const Rect headFrame{place(random), place(random), 80, 30};
        if (headFrame.intersects(tailFrame.grown(30)))
            continue;
        const ConnectorEnd tail = endOf(tailFrame, sides[round % 4]);
        const ConnectorEnd head = endOf(headFrame, sides[round / 4 % 4], 10);
        SCOPED_TRACE(testing::Message()
                     << "round " << round << " at " << headFrame.x << ", " << headFrame.y);
        Points way = route(tail, head, {});
        expectUpright(way);
        EXPECT_LE(way.size(), 7u);
        EXPECT_FALSE(entersAnywhere(way, tailFrame));
        EXPECT_FALSE(entersAnywhere(way, headFrame));
        expectLeaves(way, tail);
        std::reverse(way.begin(), way.end());
        expectLeaves(way, head);
    }
}

TEST(RouterTest, BlocksOnTopOfEachOtherAreConnectedStill)
{
    for (const Point& at : {Point{0, 0}, Point{30, 10}, Point{60, 0}, Point{59.8, 0}}) {
        const Points way =
            route(endOf(tailFrame, {1, 0}), endOf({at.x, at.y, 60, 40}, {-1, 0}, 10), {});
        expectUpright(way);
    }
}

struct WayCase : NamedRow {
    Rect head;
    Point outward;
    Surroundings surroundings;
    Points way;
};

class WayTest : public testing::TestWithParam<WayCase> {};

TEST_P(WayTest, IsTheOneThatLooksRight)
{
    EXPECT_EQ(route(endOf(tailFrame, {1, 0}), endOf(GetParam().head, GetParam().outward),
                    GetParam().surroundings),
              GetParam().way);
}

INSTANTIATE_TEST_SUITE_P(
    Router, WayTest,
    testing::Values(
        WayCase{{"StraightAcross"}, {160, 0, 60, 40}, {-1, 0}, {}, {{60, 20}, {160, 20}}},
        WayCase{{"HardlyOffsetIsStraight"}, {160, 0.3, 60, 40}, {-1, 0}, {}, {{60, 20}, {160, 20}}},
        WayCase{{"StepsHalfWay"},
                {160, 100, 60, 40},
                {-1, 0},
                {},
                {{60, 20}, {110, 20}, {110, 120}, {160, 120}}},
        WayCase{{"NearbyIsLevelHalfWay"},
                {72.3, 100, 60, 40},
                {-1, 0},
                {},
                {{60, 20}, {66.15, 20}, {66.15, 120}, {72.3, 120}}},
        WayCase{{"OneCornerIntoTheTop"},
                {160, 100, 60, 40},
                {0, -1},
                {},
                {{60, 20}, {190, 20}, {190, 100}}},
        WayCase{{"BesideALineAndNotOnIt"},
                {160, 100, 60, 40},
                {-1, 0},
                {{}, {{{60, 10}, {110, 10}, {110, 110}, {160, 110}}}},
                {{60, 20}, {104, 20}, {104, 120}, {160, 120}}},
        WayCase{{"AroundWhatIsBetween"},
                {160, 0, 60, 40},
                {-1, 0},
                {{{90, 10, 40, 100}}, {}},
                {{60, 20}, {76, 20}, {76, -4}, {144, -4}, {144, 20}, {160, 20}}}),
    rowName);

TEST(RouterTest, AnEndThatIsPassedIsNotEnteredFromBehind)
{
    const Points oneCorner{{60, 20}, {190, 20}, {190, 100}};
    const ConnectorEnd head = endOf({160, 100, 60, 40}, {0, -1});
    EXPECT_TRUE(stretched(oneCorner, endOf(tailFrame, {1, 0}), {0, 200}, head, {}, {}).empty());
}

struct StretchCase : NamedRow {
    Point tailBy, headBy;
    Points way; ///< empty: it has to be led anew
};

class StretchTest : public testing::TestWithParam<StretchCase> {};

TEST_P(StretchTest, BendsTheEndsOnly)
{
    const Points course{{60, 20}, {100, 20}, {100, 200}, {150, 200}};
    const ConnectorEnd tail = endOf(tailFrame, {1, 0});
    const ConnectorEnd head = endOf({160, 180, 60, 40}, {-1, 0}, 10);
    EXPECT_EQ(stretched(course, tail, GetParam().tailBy, head, GetParam().headBy,
                        {{{90, -200, 20, 100}}, {}}),
              GetParam().way);
}

INSTANTIATE_TEST_SUITE_P(
    Router, StretchTest,
    testing::Values(
        StretchCase{{"TailFollows"}, {10, 30}, {}, {{70, 50}, {100, 50}, {100, 200}, {150, 200}}},
        StretchCase{{"HeadFollows"}, {}, {20, -40}, {{60, 20}, {100, 20}, {100, 160}, {170, 160}}},
        StretchCase{{"BothFollow"}, {0, 5}, {0, 7}, {{60, 25}, {100, 25}, {100, 207}, {150, 207}}},
        StretchCase{
            {"PastTheOther"}, {0, 300}, {}, {{60, 320}, {100, 320}, {100, 200}, {150, 200}}},
        StretchCase{{"LevelBecomesStraight"}, {0, 180}, {}, {{60, 200}, {150, 200}}},
        StretchCase{{"TooNearTheCorner"}, {37, 0}, {}, {}},
        StretchCase{{"BeyondTheCorner"}, {90, 0}, {}, {}},
        StretchCase{{"ThroughAnObstacle"}, {0, -200}, {}, {}}),
    rowName);

} // namespace
} // namespace TovaView
