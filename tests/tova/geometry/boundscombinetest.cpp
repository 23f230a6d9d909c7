#include "tova/geometry/geometrycases.h"

namespace Tova2 {
namespace {

using Vetra::Transform;

struct CombineCase : NamedRow {
    Bounds a, b, intersection, united;
};

class BoundsCombineTest : public testing::TestWithParam<CombineCase> {};

TEST_P(BoundsCombineTest, GivesBothSetsInPlaceToo)
{
    const auto& row = GetParam();
    EXPECT_EQ(row.a.intersectedWith(row.b), row.intersection);
    EXPECT_EQ(row.a.unionedWith(row.b), row.united);
    Bounds common = row.a, all = row.a;
    common.intersectWith(row.b);
    all.unionWith(row.b);
    EXPECT_EQ(common, row.intersection);
    EXPECT_EQ(all, row.united);
}

Bounds rects(std::vector<Rect> list)
{
    return Bounds(list);
}

const Bounds box(Rect{0, 0, 10, 10});
const Bounds wide(Rect{-5, -5, 30, 30});

const CombineCase combineRows[] = {
    {"Overlapping", box, Rect{5, 5, 10, 10}, Rect{5, 5, 5, 5},
     rects({{0, 0, 10, 10}, {5, 5, 10, 10}})},
    {"Nested", box, Rect{2, 2, 3, 3}, Rect{2, 2, 3, 3}, box},
    {"NestedTheOtherWay", Rect{2, 2, 3, 3}, box, Rect{2, 2, 3, 3}, box},
    {"TouchingHaveAnEmptyStrip", box, Rect{10, 0, 5, 10}, Rect{10, 0, 0, 10},
     rects({{0, 0, 10, 10}, {10, 0, 5, 10}})},
    {"Apart", box, Rect{20, 0, 5, 5}, Bounds(), rects({{0, 0, 10, 10}, {20, 0, 5, 5}})},
    {"WithEmpty", Rect{5, 5, 2, 2}, Bounds(), Bounds(), Rect{5, 5, 2, 2}},
    {"EmptyWith", Bounds(), Rect{5, 5, 2, 2}, Bounds(), Rect{5, 5, 2, 2}},
    {"ShapeInARectangle", diamond(), wide, diamond(), wide},
    {"RectangleAroundAShape", wide, diamond(), diamond(), wide},
    {"ShapeWithEmpty", diamond(), Bounds(Rect{30, 30, 0, 0}), Bounds(), diamond()},
    {"EmptyWithShape", Bounds(Rect{30, 30, 0, 0}), diamond(), Bounds(), diamond()},
};
INSTANTIATE_TEST_SUITE_P(Bounds, BoundsCombineTest, testing::ValuesIn(combineRows), rowName);

TEST(BoundsCombineTest, ShapesCombineByTheirPaths)
{
    const Bounds left(Rect{0, 0, 5, 10});
    const Bounds half = diamond().intersectedWith(left);
    EXPECT_EQ(half.boundingRect(), (Rect{0, 0, 5, 10}));
    EXPECT_TRUE(half.contains(Point{4, 5}));
    EXPECT_FALSE(half.contains(Point{1, 1}));

    const Bounds both = diamond().unionedWith(left);
    EXPECT_EQ(both.boundingRect(), (Rect{0, 0, 10, 10}));
    EXPECT_TRUE(both.contains(Point{1, 1}));
    EXPECT_FALSE(both.contains(Point{9, 1}));
    EXPECT_TRUE(both.contains(Point{9, 5}));

    const Bounds circle(Ellipse({5, 0, 10, 10}));
    EXPECT_FALSE(diamond().intersectedWith(circle).contains(Point{4, 5}));
    EXPECT_TRUE(diamond().intersectedWith(circle).contains(Point{7, 5}));
    EXPECT_TRUE(diamond().unionedWith(circle).contains(Point{14, 5}));
}

TEST(BoundsCombineTest, PathsApartKeepTheirGap)
{
    const Bounds far(Ellipse({20, 0, 10, 10}));
    EXPECT_EQ(diamond().intersectedWith(far), Bounds());
    const Bounds both = diamond().unionedWith(far);
    EXPECT_EQ(both.boundingRect(), (Rect{0, 0, 30, 10}));
    EXPECT_TRUE(both.contains(Point{5, 5}) && both.contains(Point{25, 5}));
    EXPECT_FALSE(both.contains(Point{15, 5}));
}

TEST(BoundsCombineTest, ResultThatIsARectangleIsBare)
{
    EXPECT_EQ(diamond().intersectedWith(Bounds(Rect{4, 4, 2, 2})), Bounds(Rect{4, 4, 2, 2}));
    const Bounds list = rects({{0, 0, 10, 10}, {20, 0, 10, 10}});
    EXPECT_EQ(list.intersectedWith(Bounds(Rect{5, 5, 10, 10})), Bounds(Rect{5, 5, 5, 5}));
}

struct TransformCase : NamedRow {
    Bounds bounds;
    Transform transform;
    Bounds result;
};

class BoundsTransformTest : public testing::TestWithParam<TransformCase> {};

TEST_P(BoundsTransformTest, StaysAsPlainAsItCan)
{
    const auto result = GetParam().bounds.transformed(GetParam().transform);
    EXPECT_EQ(result, GetParam().result);
    EXPECT_EQ(result.isOnlyRect(), GetParam().result.isOnlyRect());
}

Transform turned(double degrees, const Point& center)
{
    return Transform::fromTranslate(-center.x, -center.y) * Transform::fromRotateDegrees(degrees) *
           Transform::fromTranslate(center.x, center.y);
}

const Transform moved = Transform::fromTranslate(3, 4);
const Transform mirrored = Transform::fromScale(-2, 1);
const Transform quarter = turned(90, {0, 0});

const TransformCase transformRows[] = {
    {"InvalidRectangleUnderIdentity", Rect{1, 2, -3, 4}, {}, Rect{1, 2, -3, 4}},
    {"RectangleMoved", box, moved, Rect{3, 4, 10, 10}},
    {"RectangleMirrored", box, mirrored, Rect{-20, 0, 20, 10}},
    {"RectangleTurnedByAQuarter", Rect{0, 0, 4, 2}, turned(90, {2, 1}), Rect{1, -1, 2, 4}},
    {"RectangleFlattened", box, Transform::fromScale(1, 0), Rect{0, 0, 10, 0}},
    {"EmptyPositionMoved", Rect{1, 2, 0, 0}, moved, Rect{4, 6, 0, 0}},
    {"EmptyLineMoved", Rect{1, 2, 9, 0}, moved, Rect{4, 6, 9, 0}},
    {"EmptyLineTurnedGainsNoArea", Rect{0, 0, 10, 0}, turned(45, {0, 0}), Rect{0, 0, 0, 0}},
    {"QuadrilateralMoved", diamond(), moved, Bounds({8, 4}, {13, 9}, {8, 14}, {3, 9})},
    {"PolygonMoved", Bounds(std::vector<Point>{{0, 0}, {4, 0}, {0, 3}}), moved,
     Bounds(std::vector<Point>{{3, 4}, {7, 4}, {3, 7}})},
    {"EllipseMirrored", Ellipse({0, 0, 4, 2}), mirrored, Ellipse({-8, 0, 8, 2})},
    {"EllipseFlattened", Ellipse({0, 0, 4, 2}), Transform::fromScale(0, 1), Rect{0, 0, 0, 2}},
    {"RoundedRectMirrored", RoundedRect({0, 0, 20, 10}, 3, 2), mirrored,
     RoundedRect({-40, 0, 40, 10}, 6, 2)},
    {"ListTurnedByAQuarter", rects({{0, 0, 1, 2}, {9, 9, 1, 2}}), quarter,
     rects({{-2, 0, 2, 1}, {-11, 9, 2, 1}})},
};
INSTANTIATE_TEST_SUITE_P(Bounds, BoundsTransformTest, testing::ValuesIn(transformRows), rowName);

TEST(BoundsTransformTest, TurnedRectangleBecomesItsFourCorners)
{
    const Bounds turnedBox = box.transformed(turned(45, {5, 5}));
    const double half = std::sqrt(50.0);
    EXPECT_EQ(turnedBox, Bounds({5, 5 - half}, {5 + half, 5}, {5, 5 + half}, {5 - half, 5}))
        << testing::PrintToString(turnedBox.boundingRect());
    EXPECT_FALSE(turnedBox.contains(Point{0.1, 0.1}));
    EXPECT_TRUE(turnedBox.contains(Point{5, -1}));
    // And back: the corners are a rectangle again.
    EXPECT_TRUE(turnedBox.transformed(turned(-45, {5, 5})).isOnlyRect());
}

TEST(BoundsTransformTest, TurnedEllipseKeepsItsOutline)
{
    const Bounds tall = Bounds(Ellipse({-10, -1, 20, 2})).transformed(quarter);
    EXPECT_TRUE(tall.contains(Point{0, 9}));
    EXPECT_FALSE(tall.contains(Point{0.9, 9}));
}

} // namespace
} // namespace Tova2
