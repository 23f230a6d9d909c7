#include "tova/nodes/geometry/geometryfunctions.h"
#include "tova/geometry/geometrycases.h"
#include "tova/nodes/geometry/nearestside.h"
#include "tova/nodes/geometry/vertex.h"

namespace Tova2 {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

struct SideCase : NamedRow {
    Point point;
    unsigned side;
    double distance;
    BlockSide within2;
};

class NearestSideTest : public testing::TestWithParam<SideCase> {};

TEST_P(NearestSideTest, GivesSideSignedDistanceAndBlockSide)
{
    const auto& row = GetParam();
    const Rect rect{0, 0, 10, 20};
    EXPECT_EQ(getNearestSide(row.point, rect), (NearestSide{row.side, row.distance}));
    EXPECT_EQ(getNearestBlockSide(row.point, rect, 2), row.within2);
}

const SideCase sideRows[] = {
    {"InsideLeft", {1, 5}, 0, 1, BlockSide::Left},
    {"InsideTop", {5, 1}, 1, 1, BlockSide::Top},
    {"InsideRight", {9, 5}, 2, 1, BlockSide::Right},
    {"InsideBottom", {5, 19}, 3, 1, BlockSide::Bottom},
    {"InsideTooFarIn", {5, 10}, 0, 5, BlockSide::NoSide},
    {"ToleranceIsClosed", {2, 10}, 0, 2, BlockSide::Left},
    {"CornerTieGoesToLowerIndex", {0, 0}, 0, 0, BlockSide::Left},
    {"BeyondRight", {11, 1}, 2, -1, BlockSide::Right},
    // Its absolute distance to the top is less.
    {"BeyondTwoTakesFarthest", {12, 25}, 3, -5, BlockSide::NoSide},
    {"BeyondLeftFar", {-3, 10}, 0, -3, BlockSide::NoSide},
};
INSTANTIATE_TEST_SUITE_P(Geometry, NearestSideTest, testing::ValuesIn(sideRows), rowName);

TEST(NearestSideTest, PointThatIsNotANumberHasNoBlockSide)
{
    EXPECT_EQ(getNearestBlockSide({nan, nan}, {0, 0, 10, 20}, 2), BlockSide::NoSide);
    EXPECT_EQ(getNearestBlockSide({1, 5}, {0, 0, 10, 20}, nan), BlockSide::NoSide);
}

struct ValueCase : NamedRow {
    double input, output;
};
class DragRegionMarginTest : public testing::TestWithParam<ValueCase> {};

TEST_P(DragRegionMarginTest, IsSeventeenPixelsWithinLimits)
{
    EXPECT_DOUBLE_EQ(getDragRegionMargin(GetParam().input), GetParam().output);
}
const ValueCase marginRows[] = {
    {"One", 1, 17},  {"Half", 0.5, 30},    {"Four", 4, 10},         {"Between", 1.25, 13.6},
    {"Zero", 0, 30}, {"Negative", -1, 10}, {"NotANumber", nan, 30}, {"Infinite", infinity, 10},
};
INSTANTIATE_TEST_SUITE_P(Geometry, DragRegionMarginTest, testing::ValuesIn(marginRows), rowName);

class LabelOffsetTest : public testing::TestWithParam<ValueCase> {};

TEST_P(LabelOffsetTest, InsetsByTheCornersArc)
{
    const auto offset = getLabelTopLeftOffsetInsideARoundedRect(GetParam().input);
    EXPECT_NEAR(offset.x, GetParam().output, 1e-9);
    EXPECT_NEAR(offset.y, GetParam().output - 3, 1e-9);
}
const ValueCase labelRows[] = {
    {"SmallCountsAsTen", 4, 2.929},
    {"Large", 20, 5.858},
    {"NotANumber", nan, 2.929},
    {"Infinite", infinity, 2.929},
};
INSTANTIATE_TEST_SUITE_P(Geometry, LabelOffsetTest, testing::ValuesIn(labelRows), rowName);

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
