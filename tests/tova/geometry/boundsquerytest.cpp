#include "tova/geometry/geometrycases.h"

namespace Tova2 {
namespace {

// Of each region: its bounding box's corner is out, its middle is in.
struct RegionCase : NamedRow {
    Bounds bounds;
    Point inside, outside;
};

class BoundsQueryTest : public testing::TestWithParam<RegionCase> {
protected:
    const Bounds& m_bounds = GetParam().bounds;
    Bounds around(const Point& p) const { return Bounds(Rect{p.x - 0.1, p.y - 0.1, 0.2, 0.2}); }
    Bounds diamondAround(const Point& p) const
    {
        return Bounds({p.x, p.y - 0.1}, {p.x + 0.1, p.y}, {p.x, p.y + 0.1}, {p.x - 0.1, p.y});
    }
};

TEST_P(BoundsQueryTest, TellsItsPointsFromThoseBesideIt)
{
    EXPECT_TRUE(m_bounds.contains(GetParam().inside));
    EXPECT_FALSE(m_bounds.contains(GetParam().outside));
    EXPECT_TRUE(m_bounds.intersectsWith(GetParam().inside, 0.01));
    EXPECT_FALSE(m_bounds.intersectsWith(GetParam().outside, 0.01));
}

TEST_P(BoundsQueryTest, TellsRegionsInsideFromThoseBesideIt)
{
    for (const auto& in : {around(GetParam().inside), diamondAround(GetParam().inside)}) {
        EXPECT_TRUE(m_bounds.contains(in));
        EXPECT_TRUE(m_bounds.intersectsWith(in));
        EXPECT_TRUE(in.intersectsWith(m_bounds));
        EXPECT_FALSE(in.contains(m_bounds));
    }
    for (const auto& out : {around(GetParam().outside), diamondAround(GetParam().outside)}) {
        EXPECT_FALSE(m_bounds.contains(out));
        EXPECT_FALSE(m_bounds.intersectsWith(out));
        EXPECT_FALSE(out.intersectsWith(m_bounds));
    }
}

TEST_P(BoundsQueryTest, ContainsAndMeetsItself)
{
    EXPECT_TRUE(m_bounds.contains(m_bounds));
    const auto anew = m_bounds.transformed(Vetra::Transform::fromTranslate(64, 0));
    EXPECT_TRUE(m_bounds.contains(anew.transformed(Vetra::Transform::fromTranslate(-64, 0))));
    EXPECT_TRUE(m_bounds.intersectsWith(m_bounds));
    EXPECT_EQ(m_bounds.intersectedWith(m_bounds), m_bounds);
    EXPECT_EQ(m_bounds.unionedWith(m_bounds), m_bounds);
}

QPainterPath ring()
{
    QPainterPath path;
    path.addRect(0, 0, 10, 10);
    path.addRect(3, 3, 4, 4);
    return path;
}

const RegionCase regionsRows[] = {
    {"Rectangle", Bounds(Rect{0, 0, 10, 10}), {9.8, 9.8}, {10.2, 5}},
    {"Quadrilateral", diamond(), {5, 5}, {1, 1}},
    {"Polygon", Bounds(std::vector<Point>{{0, 0}, {10, 0}, {0, 10}}), {4, 4}, {6, 6}},
    {"Ellipse", Bounds(Ellipse({0, 0, 20, 10})), {10, 5}, {1, 1}},
    // 45 degrees on the corner's arc lie 0.2929 of the radius from both sides.
    {"RoundedRectCorner", Bounds(RoundedRect({0, 0, 20, 20}, 10, 10)), {3.3, 3.3}, {2.6, 2.6}},
    {"RoundedRectSide", Bounds(RoundedRect({0, 0, 20, 20}, 5, 5)), {0.2, 10}, {0.4, 0.4}},
    RegionCase{
        "ListGap", Bounds(std::vector<Rect>{{0, 0, 1, 1}, {9, 9, 1, 1}}), {9.5, 9.5}, {5, 5}},
    {"PathHole", Bounds(ring()), {1.5, 1.5}, {5, 5}},
};
INSTANTIATE_TEST_SUITE_P(Regions, BoundsQueryTest, testing::ValuesIn(regionsRows), rowName);

TEST(BoundsQueryTest, RectangleInAGapOfAListIsNotPartOfIt)
{
    const Bounds list(std::vector<Rect>{{0, 0, 1, 1}, {9, 9, 1, 1}, {4, 4, 1, 1}});
    EXPECT_THAT(list.boundingRects(), testing::ElementsAre(Rect{0, 0, 1, 1}, Rect{9, 9, 1, 1}));
    EXPECT_FALSE(list.contains(Point{4.5, 4.5}));
}

TEST(BoundsQueryTest, ARectangleAcrossGapsIsNotContained)
{
    const Bounds stripes(std::vector<Rect>{{0, 0, 10, 2}, {0, 4, 10, 2}, {0, 8, 10, 2}});
    const Bounds abutting(std::vector<Rect>{{0, 0, 10, 4}, {0, 4, 10, 3}, {0, 6, 10, 4}});
    EXPECT_FALSE(stripes.contains(Bounds(Rect{1, 1, 8, 8})));
    EXPECT_TRUE(abutting.contains(Bounds(Rect{1, 1, 8, 8})));
    EXPECT_TRUE(stripes.contains(Bounds(Rect{0, 4, 10, 2})));
}

TEST(BoundsQueryTest, EdgesAreClosed)
{
    const Bounds bounds(Rect{0, 0, 10, 10});
    for (const auto& corner : {Point{0, 0}, Point{10, 0}, Point{10, 10}, Point{0, 10}})
        EXPECT_TRUE(bounds.contains(corner));
    EXPECT_TRUE(bounds.contains(Bounds(Rect{0, 0, 10, 10})));
    EXPECT_TRUE(bounds.intersectsWith(Bounds(Rect{10, 0, 5, 5})));
    EXPECT_FALSE(bounds.intersectsWith(Bounds(Rect{10.001, 0, 5, 5})));
    EXPECT_TRUE(Bounds(Ellipse({0, 0, 10, 10})).contains(Point{10, 5}));
}

struct ToleranceCase : NamedRow {
    Bounds bounds;
    Point point;
    double tolerance;
    bool hit;
};

class BoundsToleranceTest : public testing::TestWithParam<ToleranceCase> {};

TEST_P(BoundsToleranceTest, TakesACircleAroundThePoint)
{
    const auto& row = GetParam();
    EXPECT_EQ(row.bounds.intersectsWith(row.point, row.tolerance), row.hit);
}

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
const Bounds square(Rect{0, 0, 10, 10});

const ToleranceCase boundsRows[] = {
    {"BesideTheEdgeWithin", square, {12, 5}, 2.01, true},
    {"BesideTheEdgeBeyond", square, {12, 5}, 1.99, false},
    // The corner is 2.83 away: the circle's square reaches it, the circle does not.
    {"CornerBeyondTheCircle", square, {12, 12}, 2.5, false},
    {"CornerWithinTheCircle", square, {12, 12}, 2.9, true},
    // The diamond's side is 2.83 away.
    {"SlantBeyond", diamond(), {0.5, 0.5}, 2.7, false},
    {"SlantWithin", diamond(), {0.5, 0.5}, 2.9, true},
    {"CircleAroundTheWhole", diamond(), {5, 5}, 100, true},
    {"ZeroIsThePointOnTheEdge", square, {10, 5}, 0, true},
    {"ZeroBesideTheEdge", square, {10.01, 5}, 0, false},
    {"ZeroInAShape", diamond(), {5, 5}, 0, true},
    {"ZeroBesideAShape", diamond(), {1, 1}, 0, false},
    {"PointNotANumber", square, {nan, 5}, 1, false},
    {"ToleranceNotANumber", diamond(), {5, 5}, nan, false},
};
INSTANTIATE_TEST_SUITE_P(Bounds, BoundsToleranceTest, testing::ValuesIn(boundsRows), rowName);

} // namespace
} // namespace Tova2
