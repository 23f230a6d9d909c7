#include "tova/geometry/geometrycases.h"

#include "vetra/shape.h"

namespace Tova2 {
namespace {

// A hit test holds one rectangle and one pointer for each node.
static_assert(sizeof(Bounds) == 40);

struct MakeCase {
    const char* name;
    Bounds bounds;
    Rect rect;
    bool onlyRect, empty;
};
void PrintTo(const MakeCase& row, std::ostream* out)
{
    *out << row.name;
}

class BoundsMakeTest : public testing::TestWithParam<MakeCase> {};

TEST_P(BoundsMakeTest, HasItsRectangleAndStaysBareWhereExact)
{
    const auto& row = GetParam();
    EXPECT_EQ(row.bounds.boundingRect(), row.rect);
    EXPECT_EQ(row.bounds.isOnlyRect(), row.onlyRect);
    EXPECT_EQ(row.bounds.isEmpty(), row.empty);
}

using Points = std::vector<Point>;
using Rects = std::vector<Rect>;

INSTANTIATE_TEST_SUITE_P(
    Points, BoundsMakeTest,
    testing::Values(MakeCase{"RectangleAlongTheTopFirst",
                             Bounds({0, 0}, {4, 0}, {4, 2}, {0, 2}),
                             {0, 0, 4, 2},
                             true,
                             false},
                    MakeCase{"RectangleDownTheLeftFirst",
                             Bounds({0, 0}, {0, 2}, {4, 2}, {4, 0}),
                             {0, 0, 4, 2},
                             true,
                             false},
                    MakeCase{"RectangleFromItsFarCorner",
                             Bounds({4, 2}, {0, 2}, {0, 0}, {4, 0}),
                             {0, 0, 4, 2},
                             true,
                             false},
                    MakeCase{"SideOffByTheToleranceIsStraight",
                             Bounds({0, 0}, {4, 0.00005}, {4, 2}, {0, 2}),
                             {0, 0.00005, 4, 1.99995},
                             true,
                             false},
                    MakeCase{"SideOffByMoreIsNot",
                             Bounds({0, 0}, {4, 0.001}, {4, 2}, {0, 2}),
                             {0, 0, 4, 2},
                             false,
                             false},
                    MakeCase{"FlatCornersAreEmpty",
                             Bounds({0, 1}, {4, 1}, {4, 1}, {0, 1}),
                             {0, 1, 4, 0},
                             true,
                             true},
                    MakeCase{
                        "TwoPointPolygonIsEmpty", Bounds(Points{{1, 1}, {4, 4}}), {}, true, true},
                    MakeCase{"TriangleKeepsItsShape",
                             Bounds(Points{{0, 0}, {4, 0}, {0, 3}}),
                             {0, 0, 4, 3},
                             false,
                             false},
                    MakeCase{"FourCornersAreARectangle",
                             Bounds(Points{{0, 0}, {4, 0}, {4, 3}, {0, 3}}),
                             {0, 0, 4, 3},
                             true,
                             false},
                    MakeCase{"FifthPointMayClose",
                             Bounds(Points{{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 0}}),
                             {0, 0, 4, 3},
                             true,
                             false},
                    MakeCase{"FifthPointMustCloseExactly",
                             Bounds(Points{{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 0.00001}}),
                             {0, 0, 4, 3},
                             false,
                             false}),
    caseName<MakeCase>);

INSTANTIATE_TEST_SUITE_P(
    Rectangles, BoundsMakeTest,
    testing::Values(
        MakeCase{"None", Bounds(Rects{}), {}, true, true},
        MakeCase{"OneInvalidIsKept", Bounds(Rects{{3, 4, -1, 5}}), {3, 4, -1, 5}, true, true},
        MakeCase{"InvalidOfSeveralIsSkipped",
                 Bounds(Rects{{3, 4, 0, 5}, {1, 1, 2, 2}}),
                 {1, 1, 2, 2},
                 true,
                 false},
        MakeCase{"AllOfSeveralInvalid", Bounds(Rects{{3, 4, 0, 5}, {1, 1, 2, -2}}), {}, true, true},
        MakeCase{"InsideTheFirstIsDropped",
                 Bounds(Rects{{0, 0, 9, 9}, {0, 0, 3, 9}}),
                 {0, 0, 9, 9},
                 true,
                 false},
        MakeCase{"CoveringAllBeforeItReplacesThem",
                 Bounds(Rects{{1, 1, 1, 1}, {4, 4, 1, 1}, {0, 0, 9, 9}}),
                 {0, 0, 9, 9},
                 true,
                 false},
        MakeCase{
            "TwoApart", Bounds(Rects{{0, 0, 1, 1}, {9, 9, 1, 1}}), {0, 0, 10, 10}, false, false},
        // The second only just touches the first, yet the region is not a rectangle's.
        MakeCase{"NeighboursStayAList",
                 Bounds(Rects{{0, 0, 1, 1}, {1, 0, 1, 1}}),
                 {0, 0, 2, 1},
                 false,
                 false}),
    caseName<MakeCase>);

QPainterPath rectPath(const QRectF& rect)
{
    QPainterPath path;
    path.addRect(rect);
    return path;
}

Vetra::Shape triangle()
{
    Vetra::Shape shape;
    shape.addPolygon({{0, 0}, {4, 0}, {0, 3}});
    return shape;
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, BoundsMakeTest,
    testing::Values(
        MakeCase{"EllipseKeepsItsShape", Bounds(Ellipse({1, 2, 3, 4})), {1, 2, 3, 4}, false, false},
        MakeCase{
            "FlatEllipseIsBareAndEmpty", Bounds(Ellipse({1, 2, 3, 0})), {1, 2, 3, 0}, true, true},
        MakeCase{"RoundedRectKeepsItsShape",
                 Bounds(RoundedRect({1, 2, 3, 4}, 1, 1)),
                 {1, 2, 3, 4},
                 false,
                 false},
        MakeCase{"ToolkitRectangle", Bounds(QRectF(1, 2, 3, 4)), {1, 2, 3, 4}, true, false},
        MakeCase{"EmptyPath", Bounds(QPainterPath(QPointF(7, 7))), {}, true, true},
        MakeCase{"PathStaysAPath", Bounds(rectPath({1, 2, 3, 4})), {1, 2, 3, 4}, false, false},
        MakeCase{"PathOfALineIsEmptyWhereItLies",
                 Bounds(rectPath({1, 2, 3, 0})),
                 {1, 2, 3, 0},
                 true,
                 true},
        MakeCase{"ShapeIsAPath", Bounds(triangle()), {0, 0, 4, 3}, false, false}),
    caseName<MakeCase>);

TEST(BoundsTest, PathCoversTheRegionAndNothingOfAnEmptyOne)
{
    EXPECT_EQ(Bounds(Rect{1, 2, 3, 4}).asQPainterPath(), rectPath({1, 2, 3, 4}));
    EXPECT_TRUE(Bounds(Rect{1, 2, 0, 4}).asQPainterPath().isEmpty());
    EXPECT_EQ(Bounds(triangle()).asShape(), triangle());
    // Overlapping parts of a list, or of a polygon, are no holes.
    EXPECT_EQ(Bounds(Rects{{0, 0, 3, 3}, {1, 1, 9, 9}}).asQPainterPath().fillRule(),
              Qt::WindingFill);
    EXPECT_TRUE(Bounds(Rects{{0, 0, 3, 3}, {1, 1, 9, 9}}).contains(Point{2, 2}));
}

TEST(BoundsTest, BoundingRectsNameEachConnectedPart)
{
    const Bounds apart(Rects{{0, 0, 1, 1}, {9, 9, 1, 1}});
    EXPECT_THAT(apart.boundingRects(), testing::ElementsAre(Rect{0, 0, 1, 1}, Rect{9, 9, 1, 1}));
    EXPECT_THAT(Bounds(Rect{1, 2, 0, 4}).boundingRects(), testing::ElementsAre(Rect{1, 2, 0, 4}));
    const Bounds overlapping(Rects{{0, 0, 2, 2}, {1, 1, 3, 3}});
    EXPECT_THAT(overlapping.boundingRects(), testing::ElementsAre(Rect{0, 0, 4, 4}));
}

TEST(BoundsTest, CopiesShareAndSimplifyingOneLeavesTheOther)
{
    const Bounds original = diamond();
    Bounds copy = original;
    copy.simplifyToRect();
    EXPECT_EQ(copy, Bounds(Rect{0, 0, 10, 10}));
    EXPECT_FALSE(original.isOnlyRect());
    copy.clear();
    EXPECT_EQ(copy, Bounds());
}

TEST(BoundsTest, EqualityToleratesCornersButNotRectangles)
{
    const auto nudged = [](double d) { return Bounds({5, 0}, {10, 5}, {5 + d, 10}, {0, 5}); };
    EXPECT_EQ(nudged(0.00009), diamond());
    EXPECT_FALSE(nudged(0.0002) == diamond());
    EXPECT_FALSE(diamond() == Bounds(Rect{0, 0, 10, 10}));
    // Another kind of the same outline.
    EXPECT_EQ(Bounds(diamond().asQPainterPath()), diamond());
    EXPECT_FALSE(Bounds(Rect{0, 0, 1, 1}) == Bounds(Rect{0, 0, 1, 1.00001}));
}

} // namespace
} // namespace Tova2
