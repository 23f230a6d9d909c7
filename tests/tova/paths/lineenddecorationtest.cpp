#include "tova/nodes/lineenddecoration.h"
#include "tova/nodes/rectnode.h"
#include "vetra/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace Tova2 {
namespace {

using Point = Vetra::GLPoint<double>;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct DirectionCase {
    const char* name;
    Point reference, direction;
    double degrees;
    friend void PrintTo(const DirectionCase& row, std::ostream* out) { *out << row.name; }
};
class DirectionTest : public testing::TestWithParam<DirectionCase> {};

TEST_P(DirectionTest, TurnsFromTheReferenceToTheLine)
{
    LineEndDecoration decoration;
    decoration.setReferenceDirection(GetParam().reference);
    EXPECT_EQ(decoration.setDirection(GetParam().direction), GetParam().degrees != 0);
    EXPECT_DOUBLE_EQ(decoration.getRotation(), GetParam().degrees);
    EXPECT_FALSE(decoration.setDirection(GetParam().direction));
}

INSTANTIATE_TEST_SUITE_P(Decorations, DirectionTest,
                         testing::Values(DirectionCase{"AlongTheReference", {1, 0}, {7, 0}, 0},
                                         DirectionCase{"Down", {1, 0}, {0, 0.01}, 90},
                                         DirectionCase{"Up", {1, 0}, {0, -3}, -90},
                                         DirectionCase{"Back", {1, 0}, {-1, 0}, 180},
                                         DirectionCase{"DrawnUpwards", {0, -2}, {1, 0}, 90},
                                         DirectionCase{"Huge", {1, 0}, {1e308, 1e308}, 45},
                                         DirectionCase{"DrawnSlanted", {1, 1}, {-1, 1}, 90}),
                         [](const auto& row) { return std::string(row.param.name); });

struct ReferenceCase {
    const char* name;
    Point vector;
    bool isRefused;
    friend void PrintTo(const ReferenceCase& row, std::ostream* out) { *out << row.name; }
};
class ReferenceTest : public testing::TestWithParam<ReferenceCase> {};

TEST_P(ReferenceTest, IsRefusedWhereItHasNoDirection)
{
    LineEndDecoration decoration;
    decoration.setReferenceDirection({0, 1});
    std::string key;
    try {
        decoration.setReferenceDirection(GetParam().vector);
    } catch (const Vetra::Error& error) {
        EXPECT_EQ(error.group(), "tova:nodes");
        key = error.key();
    }
    EXPECT_EQ(key, GetParam().isRefused ? "ZeroLengthDirectionVector" : "");
    if (GetParam().isRefused)
        EXPECT_EQ(decoration.getReferenceDirection(), (Point{0, 1}));
    else
        EXPECT_EQ(decoration.getReferenceDirection(), (Point{1, 0}));
}

INSTANTIATE_TEST_SUITE_P(Decorations, ReferenceTest,
                         testing::Values(ReferenceCase{"Zero", {0, 0}, true},
                                         ReferenceCase{"Tiny", {0.001, 0.001}, true},
                                         ReferenceCase{"JustTooShort", {0.01, 0}, true},
                                         ReferenceCase{"ShortButLongEnough", {0.1, 0}, false},
                                         ReferenceCase{"Long", {1e200, 0}, false}),
                         [](const auto& row) { return std::string(row.param.name); });

TEST(LineEndDecoration, ANewReferenceMakesTheSameDirectionCountAgain)
{
    LineEndDecoration decoration;
    EXPECT_TRUE(decoration.setDirection({0, 1}));
    decoration.setReferenceDirection({0, 1});
    EXPECT_EQ(decoration.getRotation(), 90);
    EXPECT_TRUE(decoration.setDirection({0, 1}));
    EXPECT_EQ(decoration.getRotation(), 0);
}

TEST(LineEndDecoration, ADirectionNearTheLastOneIsSkipped)
{
    LineEndDecoration decoration;
    decoration.setDirection({0, 1});
    decoration.setRotation(10);
    EXPECT_FALSE(decoration.setDirection({0.00009, 1}));
    EXPECT_EQ(decoration.getRotation(), 10);
    EXPECT_TRUE(decoration.setDirection({0, 1.5}));
    EXPECT_EQ(decoration.getRotation(), 90);
}

TEST(LineEndDecoration, ValuesWithoutMeaningChangeNothing)
{
    LineEndDecoration decoration;
    decoration.setDirection({0, 1});
    const LineEndDecoration before = decoration;
    EXPECT_FALSE(decoration.setDirection({0, 0}));
    EXPECT_FALSE(decoration.setDirection({kNaN, 1}));
    EXPECT_FALSE(decoration.setPosition({kNaN, 0}));
    EXPECT_FALSE(decoration.setPosition({0, 0.0001}));
    EXPECT_FALSE(decoration.setRotation(std::numeric_limits<double>::infinity()));
    decoration.setOrigin({0, kNaN});
    decoration.setRelativePosition(kNaN);
    decoration.setLineBackoff(kNaN);
    decoration.setReferenceDirection({kNaN, 1});
    EXPECT_EQ(decoration, before);
    EXPECT_TRUE(decoration.setPosition({0, 0.001}));
    EXPECT_FALSE(decoration == before);
}

TEST(LineEndDecoration, BackoffGoesAlongTheTurnedReference)
{
    LineEndDecoration decoration;
    decoration.setLineBackoff(5);
    EXPECT_EQ(decoration.getBackoffVector(), (Point{5, 0}));
    decoration.setDirection({0, -1});
    EXPECT_EQ(decoration.getBackoffVector(), (Point{0, -5}));
}

// A point of the node goes by -origin, then along the reference, then around, then to the position.
TEST(LineEndDecoration, PlacesItsNode)
{
    const RectNode node({0, 0, 2, 1});
    LineEndDecoration decoration(node);
    decoration.setOrigin({1, 2});
    decoration.setRelativePosition(-3);
    decoration.setPosition({100, 50});
    decoration.setDirection({0, 1});
    EXPECT_TRUE(decoration.updateTransform());
    EXPECT_FALSE(decoration.updateTransform());
    EXPECT_EQ(node.mapLocalToScene(Point{0, 0}), (Point{102, 46}));
    EXPECT_EQ(node.mapLocalToScene(Point{5, 0}), (Point{102, 51}));

    EXPECT_TRUE(decoration.setCosPosition({0, 0}));
    EXPECT_EQ(node.mapLocalToScene(Point{0, 0}), (Point{2, -4}));
    EXPECT_TRUE(decoration.setCosDirection({-1, 0}));
    EXPECT_EQ(node.mapLocalToScene(Point{0, 0}), (Point{4, 2}));
}

TEST(LineEndDecoration, WithoutANodeThereIsNothingToPlace)
{
    LineEndDecoration decoration;
    EXPECT_FALSE(decoration.isValid());
    EXPECT_TRUE(decoration.updateTransform());
    EXPECT_TRUE(decoration.updateTransform());
    decoration.setParent(RectNode());
    EXPECT_TRUE(LineEndDecoration(RectNode()).isValid());
}

} // namespace
} // namespace Tova2
