#include "vetra/glrect.h"

#include "support.h"

namespace Vetra {
namespace {

using Rect = GLRect<double>;

struct PairCase : NamedRow {
    Rect a, b;
    bool intersects;
    Rect common;
};
class RectPairTest : public testing::TestWithParam<PairCase> {};

TEST_P(RectPairTest, IntersectsEitherWay)
{
    const auto& c = GetParam();
    EXPECT_EQ(c.a.intersects(c.b), c.intersects);
    EXPECT_EQ(c.b.intersects(c.a), c.intersects);
    EXPECT_EQ(c.a.intersected(c.b), c.common);
}

INSTANTIATE_TEST_SUITE_P(
    GLRect, RectPairTest,
    testing::Values(PairCase{"Overlapping", {0, 0, 10, 10}, {5, 6, 10, 10}, true, {5, 6, 5, 4}},
                    PairCase{"TouchingEdges", {0, 0, 10, 10}, {10, 0, 5, 5}, true, {10, 0, 0, 5}},
                    PairCase{"Apart", {0, 0, 10, 10}, {11, 0, 5, 5}, false, {}},
                    PairCase{"LineWithin", {0, 0, 10, 10}, {2, 3, 4, 0}, true, {2, 3, 4, 0}}),
    rowName);

TEST(GLRectTest, NaNIsNeverValidNorInside)
{
    EXPECT_FALSE((Rect{NaN, 0, 1, 1}.isValid()));
    EXPECT_FALSE((Rect{0, 0, NaN, 1}.isValid()));
    EXPECT_FALSE((Rect{0, 0, 1, 1}.contains(GLPoint<double>{NaN, 0})));
    EXPECT_TRUE((Rect{0, 0, 1, 1}.contains(GLPoint<double>{1, 1})));
}

} // namespace
} // namespace Vetra
