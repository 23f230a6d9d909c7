#include "connectortrim.h"
#include "support/rows.h"

#include <gtest/gtest.h>

namespace TovaView {
namespace {

const Rect left{0, 0, 40, 40}, right{100, 0, 40, 40};

Block blockIn(const Rect& box, Outline outline)
{
    Figure figure{outline, {}, {}, LineStyle{}};
    const double r = box.right(), b = box.bottom();
    figure.points = outline == Outline::Ellipse
                        ? Points{{box.x, box.y}, {r, b}}
                        : Points{{box.x, box.y}, {r, box.y}, {r, b}, {box.x, b}};
    Block block;
    block.frame = box;
    block.drawing.figures.push_back(figure);
    return block;
}

struct TrimCase : NamedRow {
    Outline outline;
    Points line;
    double headLength;
    Points trimmed;
};

class ConnectorTrimTest : public testing::TestWithParam<TrimCase> {};

TEST_P(ConnectorTrimTest, EndsAtTheOutline)
{
    const TrimCase& row = GetParam();
    Diagram diagram;
    diagram.blocks = {blockIn(left, row.outline), blockIn(right, row.outline)};
    Connector connector;
    connector.tail = 0;
    connector.head = 1;
    connector.lines = {{Outline::Polyline, row.line, {}, LineStyle{}}};
    connector.headEnding.emplace().length = row.headLength;
    diagram.connectors = {connector};
    trimConnectors(diagram);
    const Points& points = diagram.connectors[0].lines[0].points;
    ASSERT_EQ(points.size(), row.trimmed.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_NEAR(points[i].x, row.trimmed[i].x, 1e-6) << i;
        EXPECT_NEAR(points[i].y, row.trimmed[i].y, 1e-6) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Trim, ConnectorTrimTest,
    testing::Values(
        TrimCase{
            "BothEndsInside", Outline::Polygon, {{20, 20}, {120, 20}}, 0, {{40, 20}, {100, 20}}},
        TrimCase{
            "HeadIsLedBack", Outline::Polygon, {{40, 20}, {120, 20}}, 59, {{40, 20}, {100, 20}}},
        TrimCase{
            "HeadNeedsItsRoom", Outline::Polygon, {{40, 20}, {120, 20}}, 60, {{40, 20}, {120, 20}}},
        TrimCase{"GoodEndsStay", Outline::Polygon, {{40, 20}, {99, 20}}, 10, {{40, 20}, {99, 20}}},
        TrimCase{"CornersStay",
                 Outline::Polygon,
                 {{20, 20}, {20, 80}, {120, 80}, {120, 20}},
                 0,
                 {{20, 40}, {20, 80}, {120, 80}, {120, 40}}},
        TrimCase{"EllipseIsCutAtItsCurve",
                 Outline::Ellipse,
                 {{40, 20}, {60, 8}, {120, 8}},
                 0,
                 {{40, 20}, {60, 8}, {104, 8}}},
        TrimCase{
            "WhollyInsideStays", Outline::Polygon, {{10, 10}, {30, 10}}, 0, {{10, 10}, {30, 10}}}),
    rowName);

TEST(ConnectorTrimTest, LeavesCurvesAndOddBlocksAlone)
{
    Diagram diagram;
    diagram.blocks = {blockIn(left, Outline::Polygon), Block{}};
    Connector connector;
    connector.tail = 0;
    connector.head = 1;
    const Points curve{{20, 20}, {60, 20}, {80, 20}, {120, 20}};
    connector.lines = {{Outline::Bezier, curve, {}, LineStyle{}}};
    diagram.connectors = {connector, connector};
    diagram.connectors[1].lines[0].outline = Outline::Polyline;
    diagram.connectors[1].tail = 1;
    trimConnectors(diagram);
    EXPECT_EQ(diagram.connectors[0].lines[0].points, curve);
    EXPECT_EQ(diagram.connectors[1].lines[0].points, curve);
}

} // namespace
} // namespace TovaView
