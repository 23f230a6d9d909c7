#include "tova/nodes/geometry/geometryfunctions.h"
#include "tova/geometry/geometrycases.h"
#include "tova/nodes/geometry/nearestside.h"
#include "tova/nodes/geometry/vertex.h"

namespace Tova2 {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

struct SideCase {
    const char* name;
    Point point;
    unsigned side;
    double distance;
    BlockSide within2;
};
void PrintTo(const SideCase& row, std::ostream* out)
{
    *out << row.name;
}

class NearestSideTest : public testing::TestWithParam<SideCase> {};

TEST_P(NearestSideTest, GivesSideSignedDistanceAndBlockSide)
{
    const auto& row = GetParam();
    const Rect rect{0, 0, 10, 20};
    EXPECT_EQ(getNearestSide(row.point, rect), (NearestSide{row.side, row.distance}));
    EXPECT_EQ(getNearestBlockSide(row.point, rect, 2), row.within2);
}

INSTANTIATE_TEST_SUITE_P(
    Geometry, NearestSideTest,
    testing::Values(SideCase{"InsideLeft", {1, 5}, 0, 1, BlockSide::Left},
                    SideCase{"InsideTop", {5, 1}, 1, 1, BlockSide::Top},
                    SideCase{"InsideRight", {9, 5}, 2, 1, BlockSide::Right},
                    SideCase{"InsideBottom", {5, 19}, 3, 1, BlockSide::Bottom},
                    SideCase{"InsideTooFarIn", {5, 10}, 0, 5, BlockSide::NoSide},
                    SideCase{"ToleranceIsClosed", {2, 10}, 0, 2, BlockSide::Left},
                    SideCase{"CornerTieGoesToLowerIndex", {0, 0}, 0, 0, BlockSide::Left},
                    SideCase{"BeyondRight", {11, 1}, 2, -1, BlockSide::Right},
                    // Its absolute distance to the top is less.
                    SideCase{"BeyondTwoTakesFarthest", {12, 25}, 3, -5, BlockSide::NoSide},
                    SideCase{"BeyondLeftFar", {-3, 10}, 0, -3, BlockSide::NoSide}),
    caseName<SideCase>);

TEST(NearestSideTest, PointThatIsNotANumberHasNoBlockSide)
{
    EXPECT_EQ(getNearestBlockSide({nan, nan}, {0, 0, 10, 20}, 2), BlockSide::NoSide);
    EXPECT_EQ(getNearestBlockSide({1, 5}, {0, 0, 10, 20}, nan), BlockSide::NoSide);
}

struct ValueCase {
    const char* name;
    double input, output;
};
class DragRegionMarginTest : public testing::TestWithParam<ValueCase> {};

TEST_P(DragRegionMarginTest, IsSeventeenPixelsWithinLimits)
{
    EXPECT_DOUBLE_EQ(getDragRegionMargin(GetParam().input), GetParam().output);
}
INSTANTIATE_TEST_SUITE_P(Geometry, DragRegionMarginTest,
                         testing::Values(ValueCase{"One", 1, 17}, ValueCase{"Half", 0.5, 30},
                                         ValueCase{"Four", 4, 10}, ValueCase{"Between", 1.25, 13.6},
                                         ValueCase{"Zero", 0, 30}, ValueCase{"Negative", -1, 10},
                                         ValueCase{"NotANumber", nan, 30},
                                         ValueCase{"Infinite", infinity, 10}),
                         caseName<ValueCase>);

class LabelOffsetTest : public testing::TestWithParam<ValueCase> {};

TEST_P(LabelOffsetTest, InsetsByTheCornersArc)
{
    const auto offset = getLabelTopLeftOffsetInsideARoundedRect(GetParam().input);
    EXPECT_NEAR(offset.x, GetParam().output, 1e-9);
    EXPECT_NEAR(offset.y, GetParam().output - 3, 1e-9);
}
INSTANTIATE_TEST_SUITE_P(Geometry, LabelOffsetTest,
                         testing::Values(ValueCase{"SmallCountsAsTen", 4, 2.929},
                                         ValueCase{"Large", 20, 5.858},
                                         ValueCase{"NotANumber", nan, 2.929},
                                         ValueCase{"Infinite", infinity, 2.929}),
                         caseName<ValueCase>);

TEST(VertexTest, EachCoordinateHasTheTolerance)
{
    const Vertex vertex{{1, 2}, {3, 4}, {5, 6}};
    EXPECT_TRUE(vertex.almostEqual({{1.5, 1.5}, {3, 4}, {5, 6}}, 0.5));
    EXPECT_FALSE(vertex.almostEqual({{1.75, 2}, {3, 4}, {5, 6}}, 0.5));
    EXPECT_FALSE(vertex.almostEqual({{1, 2}, {3, 4.75}, {5, 6}}, 0.5));
    EXPECT_FALSE(vertex.almostEqual({{1, 2}, {3, 4}, {4.25, 6}}, 0.5));
    const Vertex endless{{infinity, 2}, {3, 4}, {5, 6}}, unknown{{nan, 2}, {3, 4}, {5, 6}};
    EXPECT_TRUE(endless.almostEqual(endless, 0));
    EXPECT_FALSE(unknown.almostEqual(unknown, 1));
}

TEST(RoundedRectTest, BadRadiiCountAsZero)
{
    for (const double bad : {-1.0, nan, infinity}) {
        EXPECT_EQ(RoundedRect({0, 0, 4, 4}, bad, 2).roundedX(), 0);
        EXPECT_EQ(RoundedRect({0, 0, 4, 4}, 2, bad).roundedY(), 0);
    }
}

} // namespace
} // namespace Tova2
