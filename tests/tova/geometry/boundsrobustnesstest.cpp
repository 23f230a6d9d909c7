#include "nodes/geometry/pathcost.h"
#include "nodes/geometry/pathoperations.h"
#include "tova/geometry/geometrycases.h"
#include "tova/nodes/geometry/limits.h"

namespace Tova2 {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double huge = std::numeric_limits<double>::max();

// A closed zigzag of `count` elements between the circles of radius `outer` and half of it, around
// the origin, that goes round `turns` times.
QPainterPath star(int count, double outer = 10, int turns = 1)
{
    QPainterPath path;
    for (int i = 0; i < count - 1; ++i) {
        const double angle = 2 * M_PI * turns * i / (count - 1), r = i % 2 ? outer / 2 : outer;
        const QPointF p(r * std::cos(angle), r * std::sin(angle));
        i ? path.lineTo(p) : path.moveTo(p);
    }
    path.closeSubpath();
    return path;
}

QPainterPath blob(double size)
{
    QPainterPath path(QPointF(-size, 0));
    path.cubicTo(-size, size, size, size, size, 0);
    path.cubicTo(size, -size, -size, -size, -size, 0);
    return path;
}

TEST(BoundsRobustnessTest, WhatIsNotFiniteIsEmpty)
{
    for (const double bad : {nan, infinity, -infinity}) {
        QPainterPath path = star(9);
        path.setElementPositionAt(4, bad, 1);
        EXPECT_EQ(Bounds(path), Bounds());
        EXPECT_EQ(Bounds({0, 0}, {5, 1}, {bad, 5}, {0, 5}), Bounds());
        EXPECT_EQ(Bounds(std::vector<Point>{{0, 0}, {5, 1}, {2, bad}}), Bounds());
        EXPECT_EQ(diamond().transformed({bad, 0, 0, 1, 0, 0}), Bounds());
        EXPECT_EQ(Bounds(Rect{0, 0, 1, 1}).transformed({1, 0, 0, 1, bad, 0}), Bounds());
    }
    EXPECT_EQ(Bounds(Rect{1, 1, 5, 5}).transformed(Vetra::Transform::fromScale(huge, 1)), Bounds());
    // Finite, but more than a path can hold: nothing of it is lost.
    EXPECT_EQ(diamond().transformed(Vetra::Transform::fromScale(1e200, 1)),
              Bounds(Rect{0, 0, 10 * 1e200, 10}));
}

TEST(BoundsRobustnessTest, EveryOperationOnOddRegionsEnds)
{
    std::vector<Bounds> odd{Bounds(),
                            diamond(),
                            Bounds(star(150)),
                            Bounds(Ellipse({0, 0, infinity, 4})),
                            Bounds(Ellipse({-1e300, -1e300, 2e300, 2e300})),
                            Bounds(blob(1e3)),
                            Bounds(blob(1e18)),
                            Bounds(blob(1e100)),
                            Bounds(blob(huge)),
                            Bounds(Point{-huge, 0}, {0, -huge}, {huge, 1}, {1, huge}),
                            Bounds(std::vector<Rect>{{0, 0, 1, 1}, {5, 5, infinity, 1}})};
    for (const double v : {nan, infinity, -infinity, huge, -huge, -5.0, 5e-324})
        for (const auto& rect :
             {Rect{v, 0, 4, 4}, Rect{0, 0, v, 4}, Rect{v, v, v, v}, Rect{-v, -v, v, v}})
            odd.push_back(rect);
    for (const auto& a : odd) {
        EXPECT_FALSE(a.contains(Point{nan, 0}));
        a.intersectsWith(Point{huge, -huge}, huge);
        a.boundingRects();
        for (const auto& b : odd) {
            a.contains(b);
            EXPECT_EQ(a.intersectsWith(b), b.intersectsWith(a));
            a.intersectedWith(b).asQPainterPath();
            EXPECT_TRUE(
                isFinite(a.unionedWith(b).transformed({2, 1, 0, 3, 1e300, 0}).asQPainterPath()));
        }
    }
}

TEST(BoundsRobustnessTest, CurvesBeyondTheToolkitsRangeStillAnswer)
{
    const Bounds vast(blob(1e100));
    EXPECT_TRUE(vast.contains(Point{1e99, 1e99}));
    EXPECT_FALSE(vast.contains(Point{9.9e99, 7e99}));
    EXPECT_TRUE(vast.contains(Bounds(Rect{-1e99, -1e99, 2e99, 2e99})));
    EXPECT_FALSE(vast.intersectsWith(Bounds(Rect{9.9e99, 7e99, 1e97, 1e97})));
    // Not exact any more, but never too small.
    EXPECT_EQ(vast.intersectedWith(Bounds(Rect{0, 0, 1e99, 1e99})), Bounds(Rect{0, 0, 1e99, 1e99}));
}

struct LimitCase : NamedRow {
    QPainterPath a, b;
    bool exact;
};

class BoundsLimitTest : public testing::TestWithParam<LimitCase> {};

// The second path lies in the first one's rectangle, in its inner circle and beyond.
TEST_P(BoundsLimitTest, AnswersExactlyUpToTheLimitAndAmplyBeyond)
{
    const Bounds a(GetParam().a), b(GetParam().b);
    const bool exact = GetParam().exact;
    EXPECT_EQ(canCombine(GetParam().a, GetParam().b), exact);
    EXPECT_EQ(a.unionedWith(b).isOnlyRect(), !exact);
    EXPECT_EQ(a.intersectedWith(b).isOnlyRect(), !exact);
    EXPECT_TRUE(a.unionedWith(b).boundingRect().contains(a.boundingRect()));
    EXPECT_TRUE(a.intersectsWith(b));
    // A point is exact at any length.
    EXPECT_TRUE(a.contains(Point{0, 0}));
    EXPECT_FALSE(a.contains(Point{9.9, 9.9}));
}

static_assert(Limits::pathElementsProduct == 100 * 100);

const LimitCase boundsRows[] = {
    {"ProductBelow", star(100), star(99, 8), true},
    {"ProductAtLimit", star(100), star(100, 8), true},
    {"ProductAbove", star(100), star(101, 8), false},
    {"LongWithShort", star(1250), star(8, 8), true},
    {"ManyCrossings", star(99, 10, 41), star(99, 8, 41), false},
};
INSTANTIATE_TEST_SUITE_P(Bounds, BoundsLimitTest, testing::ValuesIn(boundsRows), rowName);

TEST(BoundsLimitTest, CoordinatesEndExactAnswers)
{
    const double limit = Limits::pathCoordinate;
    EXPECT_TRUE(canCombine(star(21, limit), star(21)));
    EXPECT_FALSE(canCombine(star(21, limit * 1.001), star(21)));
}

TEST(BoundsLimitTest, ClippingByARectangleIsExactAtAnyLength)
{
    const Bounds clipped = Bounds(star(5001)).intersectedWith(Bounds(Rect{0, -20, 40, 40}));
    EXPECT_FALSE(clipped.isOnlyRect());
    EXPECT_TRUE(clipped.contains(Point{3, 0}));
    EXPECT_FALSE(clipped.contains(Point{-3, 0}));
}

TEST(BoundsLimitTest, DisjointPathsUniteExactlyAtAnyLength)
{
    const Bounds far = Bounds(star(3001)).transformed(Vetra::Transform::fromTranslate(100, 0));
    const Bounds both = Bounds(star(3001)).unionedWith(far);
    EXPECT_TRUE(both.contains(Point{0, 0}) && both.contains(Point{100, 0}));
    EXPECT_FALSE(both.contains(Point{50, 0}));
}

} // namespace
} // namespace Tova2
