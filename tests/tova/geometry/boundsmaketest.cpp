#include "tova/geometry/geometrycases.h"

#include "vetra/shape.h"

namespace Tova2 {
namespace {

// A hit test holds one rectangle and one pointer for each node.
static_assert(sizeof(Bounds) == 40);

enum Kind { Bare, Shaped, Empty };

struct MakeCase : NamedRow {
    Bounds bounds;
    Rect rect;
    Kind kind;
};

class BoundsMakeTest : public testing::TestWithParam<MakeCase> {};

TEST_P(BoundsMakeTest, HasItsRectangleAndStaysBareWhereExact)
{
    const auto& row = GetParam();
    EXPECT_EQ(row.bounds.boundingRect(), row.rect);
    EXPECT_EQ(row.bounds.isOnlyRect(), row.kind != Shaped);
    EXPECT_EQ(row.bounds.isEmpty(), row.kind == Empty);
}

using Points = std::vector<Point>;
using Rects = std::vector<Rect>;

const MakeCase pointsRows[] = {
    {"RectangleAlongTheTopFirst", Bounds({0, 0}, {4, 0}, {4, 2}, {0, 2}), {0, 0, 4, 2}, Bare},
    {"RectangleDownTheLeftFirst", Bounds({0, 0}, {0, 2}, {4, 2}, {4, 0}), {0, 0, 4, 2}, Bare},
    {"RectangleFromItsFarCorner", Bounds({4, 2}, {0, 2}, {0, 0}, {4, 0}), {0, 0, 4, 2}, Bare},
    {"SideOffByTheToleranceIsStraight",
     Bounds({0, 0}, {4, 0.00005}, {4, 2}, {0, 2}),
     {0, 0.00005, 4, 1.99995},
     Bare},
    {"SideOffByMoreIsNot", Bounds({0, 0}, {4, 0.001}, {4, 2}, {0, 2}), {0, 0, 4, 2}, Shaped},
    {"FlatCornersAreEmpty", Bounds({0, 1}, {4, 1}, {4, 1}, {0, 1}), {0, 1, 4, 0}, Empty},
    {"TwoPointPolygonIsEmpty", Bounds(Points{{1, 1}, {4, 4}}), {}, Empty},
    {"TriangleKeepsItsShape", Bounds(Points{{0, 0}, {4, 0}, {0, 3}}), {0, 0, 4, 3}, Shaped},
    {"FourCornersAreARectangle",
     Bounds(Points{{0, 0}, {4, 0}, {4, 3}, {0, 3}}),
     {0, 0, 4, 3},
     Bare},
    {"FifthPointMayClose",
     Bounds(Points{{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 0}}),
     {0, 0, 4, 3},
     Bare},
    {"FifthPointMustCloseExactly",
     Bounds(Points{{0, 0}, {4, 0}, {4, 3}, {0, 3}, {0, 0.00001}}),
     {0, 0, 4, 3},
     Shaped},
};
INSTANTIATE_TEST_SUITE_P(Points, BoundsMakeTest, testing::ValuesIn(pointsRows), rowName);

const MakeCase rectanglesRows[] = {
    {"None", Bounds(Rects{}), {}, Empty},
    {"OneInvalidIsKept", Bounds(Rects{{3, 4, -1, 5}}), {3, 4, -1, 5}, Empty},
    {"InvalidOfSeveralIsSkipped", Bounds(Rects{{3, 4, 0, 5}, {1, 1, 2, 2}}), {1, 1, 2, 2}, Bare},
    {"AllOfSeveralInvalid", Bounds(Rects{{3, 4, 0, 5}, {1, 1, 2, -2}}), {}, Empty},
    {"InsideTheFirstIsDropped", Bounds(Rects{{0, 0, 9, 9}, {0, 0, 3, 9}}), {0, 0, 9, 9}, Bare},
    {"CoveringAllBeforeItReplacesThem",
     Bounds(Rects{{1, 1, 1, 1}, {4, 4, 1, 1}, {0, 0, 9, 9}}),
     {0, 0, 9, 9},
     Bare},
    {"TwoApart", Bounds(Rects{{0, 0, 1, 1}, {9, 9, 1, 1}}), {0, 0, 10, 10}, Shaped},
    // The second only just touches the first, yet the region is not a rectangle's.
    {"NeighboursStayAList", Bounds(Rects{{0, 0, 1, 1}, {1, 0, 1, 1}}), {0, 0, 2, 1}, Shaped},
};
INSTANTIATE_TEST_SUITE_P(Rectangles, BoundsMakeTest, testing::ValuesIn(rectanglesRows), rowName);

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

const MakeCase shapesRows[] = {
    {"EllipseKeepsItsShape", Bounds(Ellipse({1, 2, 3, 4})), {1, 2, 3, 4}, Shaped},
    {"FlatEllipseIsBareAndEmpty", Bounds(Ellipse({1, 2, 3, 0})), {1, 2, 3, 0}, Empty},
    {"RoundedRectKeepsItsShape", Bounds(RoundedRect({1, 2, 3, 4}, 1, 1)), {1, 2, 3, 4}, Shaped},
    {"ToolkitRectangle", Bounds(QRectF(1, 2, 3, 4)), {1, 2, 3, 4}, Bare},
    {"EmptyPath", Bounds(QPainterPath(QPointF(7, 7))), {}, Empty},
    {"PathStaysAPath", Bounds(rectPath({1, 2, 3, 4})), {1, 2, 3, 4}, Shaped},
    {"PathOfALineIsEmptyWhereItLies", Bounds(rectPath({1, 2, 3, 0})), {1, 2, 3, 0}, Empty},
    {"ShapeIsAPath", Bounds(triangle()), {0, 0, 4, 3}, Shaped},
};
INSTANTIATE_TEST_SUITE_P(Shapes, BoundsMakeTest, testing::ValuesIn(shapesRows), rowName);

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
