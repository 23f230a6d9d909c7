#include "layout/referenceflow.h"

#include "support/rows.h"

#include <gmock/gmock.h>

namespace Tova2::LayoutTest {
namespace {

using H = HorizontalAlignment;
using V = VerticalAlignment;
constexpr auto hidden = std::nullopt;

struct FlowCase : NamedRow {
    Rules rules;
    std::vector<Size> boxes;
    std::vector<std::optional<Point>> places;
    Rect frame;
};
class FlowTest : public testing::TestWithParam<FlowCase> {};

TEST_P(FlowTest, PutsMembersWhereTheRulesSay)
{
    const FlowCase& c = GetParam();
    const CountingScale scale(c.rules.scale);
    const Vetra::Holder<AutoLayoutPanel> panel(new AutoLayoutPanel);
    panel->setNonLinearScaleFunction(&scale);
    apply(c.rules, *panel);
    for (const Size& box : c.boxes)
        panel->addNode(boxNode(box));
    EXPECT_EQ(shownIn(*panel), c.places);
    EXPECT_EQ(referenceFlow(c.rules, c.boxes), c.places) << "the reference of the other tests";
    EXPECT_EQ(panel->getBoundingRectangle(), c.frame);
    EXPECT_EQ(panel->getRootNode().getRect(), c.frame);
}

const std::vector<Size> kThree{{10, 6}, {20, 8}, {10, 4}};

INSTANTIATE_TEST_SUITE_P(
    Panel, FlowTest,
    testing::Values(
        FlowCase{{"WithoutWidthEachHasItsRow"},
                 {},
                 kThree,
                 {{{1, -7}}, {{1, -16}}, {{1, -21}}},
                 {0, -22, 22, 22}},
        FlowCase{{"AWidthOfOneCountsAsNone"},
                 {.size = {1, 0}},
                 {{10, 6}, {0.5, 2}},
                 {{{1, -7}}, {{1, -10}}},
                 {0, -11, 12, 11}},
        FlowCase{{"ExpandingWrapsWhereTheSameAgainPassesAThousand"},
                 {.mode = ExpandMode::Horizontal, .v = V::Bottom},
                 {{400, 6}, {199, 6}, {300, 6}, {10, 6}},
                 {{{1, 1}}, {{402, 1}}, {{602, 1}}, {{1, 8}}},
                 {0, 0, 903, 15}},
        FlowCase{{"TheLookAheadIsNearerToTheLeft"},
                 {.mode = ExpandMode::Horizontal, .h = H::Right, .v = V::Bottom, .size = {40, 0}},
                 kThree,
                 {{{-11, 1}}, {{-32, 1}}, {{-43, 1}}},
                 {-44, 0, 44, 10}},
        FlowCase{{"TheMiddleNeverWraps"},
                 {.h = H::Middle, .v = V::Middle, .padding = 2},
                 kThree,
                 {{{-3, -1}}, {{4, -2}}, {{31, 0}}},
                 {-5, -4, 48, 12}},
        FlowCase{{"RowsBelowTheHeightAreHidden"},
                 {.v = V::Bottom, .size = {0, 14}},
                 kThree,
                 {{{1, 1}}, {{1, 8}}, hidden},
                 {0, 0, 22, 17}},
        FlowCase{{"RowsThatGrowUpwardsNeverAre"},
                 {.size = {0, 2}},
                 kThree,
                 {{{1, -7}}, {{1, -16}}, {{1, -21}}},
                 {0, -22, 22, 22}},
        FlowCase{{"ExpandingVerticallyForgetsTheHeight"},
                 {.mode = ExpandMode::Vertical, .v = V::Bottom, .size = {0, 2}},
                 kThree,
                 {{{1, 1}}, {{1, 8}}, {{1, 17}}},
                 {0, 0, 22, 22}},
        FlowCase{{"TheSizeIsInSceneUnits"},
                 {.h = H::Left, .v = V::Bottom, .size = {70, 0}, .scale = 2},
                 kThree,
                 {{{1, 1}}, {{12, 1}}, {{33, 1}}},
                 {0, 0, 44, 10}},
        FlowCase{{"NoMembersLeaveThePaddingAlone"}, {.padding = 3}, {}, {}, {-3, -3, 6, 6}}),
    rowName);

} // namespace
} // namespace Tova2::LayoutTest
