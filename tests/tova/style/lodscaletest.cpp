#include "tova/nodes/style/lodscale.h"
#include "support/rows.h"
#include "tova/nodes/style/lodcolordepth.h"

#include <gtest/gtest.h>

namespace Tova2 {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

struct ScaleCase : NamedRow {
    const LodScale* function;
    double viewScale, multiplier;
};
class LodScaleTest : public testing::TestWithParam<ScaleCase> {};

TEST_P(LodScaleTest, Multiplies)
{
    EXPECT_DOUBLE_EQ(GetParam().function->scale(GetParam().viewScale), GetParam().multiplier);
}

const auto* plain = LodScale::instance();
const auto* constant = ConstantLodScale::instance();
const auto* constantIn = ConstantInLodScale::instance();
const auto* constantOut = ConstantOutLodScale::instance();
const auto* split = SplitLinearLodScale::instance();
const auto* selection = SelectionNonLinearLodScale::instance();
const LinearlyScaleUntilLodScale untilFour(4), untilNothing(-1), untilUnknown(nan);

const ScaleCase functionsRows[] = {
    {"PlainFollowsTheZoom", plain, 7, 1},
    {"ConstantIn4", constant, 4, 0.25},
    {"ConstantOutOf4", constant, 0.25, 4},
    {"InAtOne", constantIn, 1, 1},
    {"InBelowOne", constantIn, 0.25, 1},
    {"InAboveOne", constantIn, 4, 0.25},
    {"OutBelowOne", constantOut, 0.5, 2},
    {"OutAboveOne", constantOut, 4, 1},
    {"UntilBelow", &untilFour, 3, 1},
    {"UntilAtLimit", &untilFour, 4, 1},
    {"UntilBeyond", &untilFour, 16, 0.25},
    {"NegativeLimitIsOne", &untilNothing, 2, 0.5},
    {"UnknownLimitIsOne", &untilUnknown, 2, 0.5},
    // The view scale itself, and not 1.
    {"SplitBelowOne", split, 0.5, 0.5},
    {"SplitAtOne", split, 1, 1},
    {"SplitAtTwo", split, 2, 7.0 / 11},
    {"SplitReachesItsCap", split, 10, 0.2},
    {"SplitStaysAtItsCap", split, 100, 0.02},
    {"SelectionAtOne", selection, 1, 1},
    // 2 to the power of -7.
    {"SelectionAt1024", selection, 1024, 1.0 / 128},
};
INSTANTIATE_TEST_SUITE_P(Functions, LodScaleTest, testing::ValuesIn(functionsRows), rowName);

TEST(LodScaleTest, NoViewScaleGivesAnUnusableMultiplier)
{
    for (const LodScale* function :
         {plain, static_cast<const LodScale*>(constant), static_cast<const LodScale*>(constantIn),
          static_cast<const LodScale*>(constantOut), static_cast<const LodScale*>(split),
          static_cast<const LodScale*>(selection), static_cast<const LodScale*>(&untilFour)}) {
        for (const double bad : {0.0, -0.0, -2.0, nan, infinity, -infinity})
            EXPECT_EQ(function->scale(bad), function->scale(1))
                << function->name().str() << ' ' << bad;
        for (const double extreme : {5e-324, 1e-300, 1e300, std::numeric_limits<double>::max()})
            EXPECT_TRUE(std::isfinite(function->scale(extreme))) << function->name().str();
    }
}

TEST(LodScaleTest, NamesLeadToKindsAndBack)
{
    const std::pair<LodScaleKind, const char*> names[] = {
        {LodScaleKind::None, "None"},
        {LodScaleKind::Constant, "Constant"},
        {LodScaleKind::ConstantOut, "ConstantOut"},
        {LodScaleKind::ConstantIn, "ConstantIn"},
        {LodScaleKind::SplitLinear, "SplitLinear"},
        {LodScaleKind::SelectionNonLinear, "SelectionNonLinear"}};
    for (const auto& [kind, name] : names) {
        EXPECT_EQ(lodScaleOfKind(kind)->name().str(), name);
        EXPECT_EQ(lodScaleKind(*lodScaleOfKind(kind)), kind);
    }
    EXPECT_EQ(untilFour.name().str(), "LinearlyScaleUntilLodScale");
    EXPECT_EQ(lodScaleKind(untilFour), LodScaleKind::UnknownScale);
}

TEST(LodColorDepthTest, StoresWhatTheScreenSaysUntilTold)
{
    LodColorDepth::setSystemColorDepth(0);
    const int found = LodColorDepth::getSystemColorDepth();
    EXPECT_GT(found, 0);
    LodColorDepth::setSystemColorDepth(8);
    EXPECT_EQ(LodColorDepth::getSystemColorDepth(), 8);
    EXPECT_TRUE(LodColorDepth::isLow());
    LodColorDepth::setSystemColorDepth(16);
    EXPECT_FALSE(LodColorDepth::isLow());
    LodColorDepth::cacheSystemColorDepth();
    EXPECT_EQ(LodColorDepth::getSystemColorDepth(), found);
}

} // namespace
} // namespace Tova2
