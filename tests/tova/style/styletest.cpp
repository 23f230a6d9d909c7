#include "support/rows.h"
#include "tova/nodes/style/drawstyle.h"
#include "tova/style/lowcolor.h"

#include <gtest/gtest.h>

namespace Tova2 {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

// Files and scripts keep these numbers.
static_assert(static_cast<int>(StrokeStyle::DashDotDotLine) == 5 &&
              static_cast<int>(StrokeStyle::SolidLine) == 1);
static_assert(static_cast<int>(StrokeCapStyle::RoundCap) == 2 &&
              static_cast<int>(StrokeCapStyle::SquareCap) == 1);
static_assert(static_cast<int>(StrokeJoinStyle::SvgMiterJoin) == 3 &&
              static_cast<int>(StrokeJoinStyle::RoundJoin) == 2);
static_assert(static_cast<int>(FillStyle::Gradient) == 2 &&
              static_cast<int>(FillStyle::Solid) == 1);

Stroke solid(const Vetra::Color& color, double width = 1, const LodScale* function = nullptr)
{
    return {
        color,   width, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin,
        function};
}

TEST(StrokeTest, DefaultsAreCosmeticBlackAndNoStrokeIsTransparent)
{
    for (const auto& stroke : {Stroke(StrokeStyle::DotLine), Stroke::NoStroke()}) {
        EXPECT_EQ(stroke.scaleFunction(), LodScale::instance());
        EXPECT_EQ(stroke.logicalWidth(), 0);
        EXPECT_EQ(stroke.capStyle(), StrokeCapStyle::FlatCap);
        EXPECT_EQ(stroke.joinStyle(), StrokeJoinStyle::MiterJoin);
    }
    EXPECT_EQ(Stroke(StrokeStyle::DotLine).color().packed(), 0xff000000);
    EXPECT_EQ(Stroke::NoStroke().color().packed(), 0u);
    EXPECT_TRUE(Stroke::NoStroke().isNoStroke());
    EXPECT_FALSE(Stroke(StrokeStyle::DotLine).isNoStroke());
}

struct WidthCase : NamedRow {
    Stroke stroke;
    double viewScale, width;
};
class StrokeWidthTest : public testing::TestWithParam<WidthCase> {};

TEST_P(StrokeWidthTest, IsInSceneUnits)
{
    EXPECT_DOUBLE_EQ(GetParam().stroke.width(GetParam().viewScale), GetParam().width);
}

struct HostileScale : LodScale {
    explicit HostileScale(double value) : m_value(value) {}
    double scale(double) const override { return m_value; }
    double m_value;
};
const HostileScale unknownScale(nan), endlessScale(infinity), negativeScale(-1);
constexpr double most = std::numeric_limits<double>::max();

const WidthCase strokesRows[] = {
    {"CosmeticZoomedIn", Stroke(StrokeStyle::SolidLine), 2, 0.5},
    {"CosmeticZoomedOut", Stroke(StrokeStyle::SolidLine), 0.25, 4},
    {"CosmeticIgnoresTheFunction", solid(red, 0, SplitLinearLodScale::instance()), 0.5, 2},
    {"FollowsTheZoomByDefault", solid(red, 3), 2, 3},
    {"ConstantOnScreen", solid(red, 3, ConstantLodScale::instance()), 2, 1.5},
    {"ScaleZero", Stroke(StrokeStyle::SolidLine), 0, 1},
    {"ScaleNegative", solid(red, 3, ConstantLodScale::instance()), -2, 3},
    {"ScaleNotANumber", Stroke(StrokeStyle::SolidLine), nan, 1},
    {"ScaleInfinite", Stroke(StrokeStyle::SolidLine), infinity, 1},
    {"ScaleSubnormal", Stroke(StrokeStyle::SolidLine), 5e-324, most},
    {"WidthOverflows", solid(red, 1e300, ConstantLodScale::instance()), 1e-300, most},
    {"FunctionGivesNoNumber", solid(red, 3, &unknownScale), 1, 0},
    {"FunctionGivesNegative", solid(red, 3, &negativeScale), 1, 0},
    {"FunctionGivesInfinity", solid(red, 3, &endlessScale), 1, most},
};
INSTANTIATE_TEST_SUITE_P(Strokes, StrokeWidthTest, testing::ValuesIn(strokesRows), rowName);

TEST(StrokeTest, BadWidthsAndNullFunctionsAreRefused)
{
    Stroke stroke = solid(red, 2, ConstantLodScale::instance());
    for (const double bad : {nan, infinity, -infinity, -1.0}) {
        stroke.setLogicalWidth(bad);
        EXPECT_EQ(stroke.logicalWidth(), 2);
        EXPECT_EQ(solid(red, bad).logicalWidth(), 0);
    }
    stroke.setScaleFunction(nullptr);
    EXPECT_EQ(stroke.scaleFunction(), LodScale::instance());
    EXPECT_EQ(solid(red).scaleFunction(), LodScale::instance());
}

TEST(FillTest, ConstructorsGiveStyleAndColour)
{
    EXPECT_EQ(Fill().style(), FillStyle::NoFill);
    EXPECT_EQ(Fill().color().packed(), 0xffffffff);
    EXPECT_EQ(Fill(red).style(), FillStyle::Solid);
    EXPECT_EQ(Fill(red, FillStyle::NoFill).style(), FillStyle::NoFill);
    EXPECT_EQ(&Fill::NoFill(), &Fill::NoFill());
    EXPECT_EQ(Fill::NoFill(), Fill());
    const Fill gradient(gradientOf(red, blue));
    EXPECT_EQ(gradient.style(), FillStyle::Gradient);
    EXPECT_EQ(gradient.color().packed(), 1u);
    EXPECT_EQ(gradient.gradient(), gradientOf(red, blue));
}

TEST(FillTest, SettingAGradientLeavesTheStyleAlone)
{
    Fill fill(red);
    fill.setGradient(gradientOf(blue, red));
    EXPECT_EQ(fill.style(), FillStyle::Solid);
    EXPECT_EQ(fill.color(), red);
}

TEST(FillTest, FewColoursTurnAGradientIntoItsFirst)
{
    const LowColor screen;
    EXPECT_EQ(Fill(gradientOf(blue, red)).style(), FillStyle::Solid);
    EXPECT_EQ(Fill(gradientOf(blue, red)).color(), blue);
    Fill fill;
    fill.setGradient(gradientOf(blue, red));
    EXPECT_EQ(fill.style(), FillStyle::Solid);
    EXPECT_EQ(fill.color(), blue);
    // There is no first stop to take.
    EXPECT_EQ(Fill(Vetra::Gradient()).style(), FillStyle::Gradient);
    EXPECT_EQ(Fill(Vetra::Gradient()).color().packed(), 1u);
}

struct OpaqueCase : NamedRow {
    Stroke stroke;
    Fill fill;
    bool opaque;
};
class DrawStyleOpaqueTest : public testing::TestWithParam<OpaqueCase> {};

TEST_P(DrawStyleOpaqueTest, TellsWhetherAllBelowIsHidden)
{
    EXPECT_EQ(DrawStyle(GetParam().stroke, GetParam().fill).isOpaque(), GetParam().opaque);
}

const OpaqueCase stylesRows[] = {
    {"SolidFill", solid(red), red, true},
    {"TranslucentFill", solid(red), glass, false},
    {"TranslucentStroke", solid(glass), red, false},
    {"TransparentStrokeOfNoStyle", Stroke::NoStroke(), red, true},
    {"NoFill", solid(red), Fill(red, FillStyle::NoFill), false},
    {"GradientOpaque", solid(red), gradientOf(red, blue), true},
    {"GradientWithOneTranslucentStop", solid(red), gradientOf(red, glass), false},
    {"GradientUnderTranslucentStroke", solid(glass), gradientOf(red, blue), false},
    {"GradientWithoutStops", solid(red), Vetra::Gradient(), false},
};
INSTANTIATE_TEST_SUITE_P(Styles, DrawStyleOpaqueTest, testing::ValuesIn(stylesRows), rowName);

} // namespace
} // namespace Tova2
