#include "plainreader.h"
#include "support/rows.h"
#include "temporaryfolder.h"

#include <gmock/gmock.h>

namespace TovaView {
namespace {

const QByteArray twoBoxes = "graph 1 2 3\n"
                            "node a 1 2.5 1 0.5 \"x \\\"y\\\"\" solid box black lightgrey\n"
                            "node b 1 0.5 1 0.5 <<b>bold</b>> filled ellipse red \"#00ff00\"\n";

Diagram read(const QByteArray& text)
{
    return readPlain(QStringLiteral("f.plain"), text);
}

TEST(PlainReaderTest, TurnsInchesUpIntoPointsDown)
{
    const Diagram diagram = read(twoBoxes + "stop\n");
    EXPECT_EQ(diagram.bounds, (Rect{0, 0, 144, 216}));
    ASSERT_EQ(diagram.blocks.size(), 2u);
    EXPECT_EQ(diagram.blocks[0].frame, (Rect{36, 18, 72, 36}));
    EXPECT_EQ(diagram.blocks[0].drawing.texts.at(0).text, QStringLiteral("x \"y\""));
    EXPECT_FALSE(diagram.blocks[0].drawing.figures.at(0).fill);
    EXPECT_EQ(diagram.blocks[1].drawing.texts.at(0).text, QStringLiteral("bold"));
    const Figure& ellipse = diagram.blocks[1].drawing.figures.at(0);
    EXPECT_EQ(ellipse.outline, Outline::Ellipse);
    EXPECT_EQ(ellipse.fill->color.packed(), 0xff00ff00u);
    EXPECT_EQ(ellipse.line->color.packed(), 0xffff0000u);
}

TEST(PlainReaderTest, StraightPiecesCollapseToCorners)
{
    const Diagram diagram = read(twoBoxes + "edge a b 7 1 2 1 2 1 1.5 1 1.5 1 1.5 1.5 1.5 1.5 1.5"
                                            " \"via here\" 1.2 1.4 dashed blue\nstop\n");
    const Connector& connector = diagram.connectors.at(0);
    EXPECT_EQ(connector.lines.at(0).outline, Outline::Polyline);
    EXPECT_EQ(connector.lines[0].points, (Points{{72, 72}, {72, 108}, {108, 108}}));
    EXPECT_EQ(connector.lines[0].line->dash, Dash::Dashed);
    EXPECT_EQ(connector.labels.texts.at(0).text, QStringLiteral("via here"));
}

TEST(PlainReaderTest, NeedlessCornersStay)
{
    const Diagram diagram =
        read(twoBoxes + "edge a b 10 1 2 1 2 1 1.5 1 1.5 1 1.5 1 1.5 1 1.5 1 1.5 1 1 1 1"
                        " solid black\nstop\n");
    EXPECT_EQ(diagram.connectors.at(0).lines.at(0).points,
              (Points{{72, 72}, {72, 108}, {72, 108}, {72, 144}}));
}

TEST(PlainReaderTest, BentPiecesStayCurves)
{
    const Diagram diagram =
        read(twoBoxes + "edge a b 4 1 2.25 1.5 2 0.5 1 1 0.75 solid black\nstop\n");
    EXPECT_EQ(diagram.connectors.at(0).lines.at(0).outline, Outline::Bezier);
    EXPECT_FALSE(diagram.connectors[0].headEnding) << "touches";
}

TEST(PlainReaderTest, UprightPiecesPartFromBentOnes)
{
    const Diagram diagram =
        read(twoBoxes + "edge a b 10 1 2 1 2 1 1.5 1 1.5 1 1 1.5 1 2 0.5 2 0.5 2 0.25 2 0.25"
                        " solid black\nstop\n");
    const auto& lines = diagram.connectors.at(0).lines;
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].points, (Points{{72, 72}, {72, 108}}));
    EXPECT_EQ(lines[1].outline, Outline::Bezier);
    EXPECT_EQ(lines[1].points.size(), 4u);
    EXPECT_EQ(lines[2].points, (Points{{144, 180}, {144, 198}}));
}

TEST(PlainReaderTest, InvisibleConnectorsKeepOnlyTheirWay)
{
    const Diagram diagram = read(twoBoxes + "edge a b 4 1 2.25 1 2 1 1 1 0.889 words 1 1 invis"
                                            " black\nstop\n");
    const Connector& connector = diagram.connectors.at(0);
    EXPECT_TRUE(connector.hidden && !connector.headEnding && !connector.tailEnding &&
                connector.labels.empty());
    EXPECT_EQ(connector.lines.at(0).points.size(), 2u);
    EXPECT_FALSE(connector.lines[0].line);
}

TEST(PlainReaderTest, HeadFillsTheGapBeforeTheBlock)
{
    // The ellipse's top is at 0.75 inches; ten points above it are 0.889.
    const Diagram diagram =
        read(twoBoxes + "edge a b 4 1 2.25 1 2 1 1 1 0.889 solid black\nstop\n");
    const Connector& connector = diagram.connectors.at(0);
    ASSERT_TRUE(connector.headEnding && !connector.tailEnding);
    EXPECT_NEAR(connector.headEnding->tip.y, 162, 0.1);
    EXPECT_TRUE(connector.headEnding->isBeyond);
}

TEST(PlainReaderTest, GraphsComeSideBySide)
{
    const QByteArray one = twoBoxes + "edge a b 4 1 2.25 1 2 1 1 1 0.75 solid black\nstop\n";
    const Diagram diagram = read(one + one);
    ASSERT_EQ(diagram.blocks.size(), 4u);
    EXPECT_GT(diagram.blocks[2].frame.x, diagram.blocks[0].frame.right() + 36);
    EXPECT_EQ(diagram.connectors.at(1).tail, 2);
}

TEST(PlainReaderTest, HuesComeAsThreeBareNumbers)
{
    const Diagram diagram = read("graph 1 2 3\n"
                                 "node a 1 1 1 1 a filled box 0.0 1.0 1.0 blue\n"
                                 "node b 1 1 1 1 b filled box red 0.333333 1 1\n"
                                 "edge a b 4 0 0 1 1 0 1 9 9 label 1 1 solid 0.0 1.0 1.0\nstop\n");
    const auto lineColor = [](const Figure& figure) { return figure.line->color.packed(); };
    EXPECT_EQ(lineColor(diagram.blocks.at(0).drawing.figures.at(0)), 0xffff0000u);
    EXPECT_EQ(diagram.blocks.at(1).drawing.figures.at(0).fill->color.packed(), 0xff00ff00u);
    EXPECT_EQ(lineColor(diagram.connectors.at(0).lines.at(0)), 0xffff0000u);
    EXPECT_EQ(diagram.connectors[0].labels.texts.at(0).text, QStringLiteral("label"));
}

struct MalformedCase : NamedRow {
    QByteArray text;
    const char* complaint;
};

class MalformedPlainTest : public testing::TestWithParam<MalformedCase> {};

TEST_P(MalformedPlainTest, GivesTheLine)
{
    EXPECT_THAT(complaintOf([] { read(GetParam().text); }),
                testing::StartsWith(GetParam().complaint));
}

INSTANTIATE_TEST_SUITE_P(
    PlainReader, MalformedPlainTest,
    testing::Values(
        MalformedCase{"NoGraph", "digraph {}", "f.plain:1: does not start"},
        MalformedCase{"GraphCutShort", "\ngraph 1 2\n", "f.plain:2: the line ends too early"},
        MalformedCase{"NoStop", twoBoxes, "f.plain:4: ends without"},
        MalformedCase{"NumberIsWord", "graph 1 2 3\nnode a x 1 1 1 a s b c d\nstop",
                      "f.plain:2: \"x\""},
        MalformedCase{"NumberIsNan", "graph 1 nan 3\nstop", "f.plain:1: \"nan\""},
        MalformedCase{"NumberIsHuge", "graph 1 1e300 3\nstop", "f.plain:1: \"1e300\""},
        MalformedCase{"ScaleIsZero", "graph 0 1 3\nstop", "f.plain:1: the scale"},
        MalformedCase{"UnknownStatement", "graph 1 2 3\nblob\nstop", "f.plain:2: \"blob\""},
        MalformedCase{"UnknownBlock", twoBoxes + "edge a c 4 1 1 1 1 1 1 1 1 s c\nstop",
                      "f.plain:4: there is no node \"c\""},
        MalformedCase{"PointCount", twoBoxes + "edge a b 5 1 1 1 1 1 1 1 1 1 1 s c\nstop",
                      "f.plain:4: 5 points"},
        MalformedCase{"PointCountHuge", twoBoxes + "edge a b 1e5 1 1\nstop",
                      "f.plain:4: the line ends"},
        MalformedCase{"PointCountNegative", twoBoxes + "edge a b -4 1 1\nstop", "f.plain:4: -4"},
        MalformedCase{"OpenQuoteNamesItsStart", "graph 1 2 3\nnode \"a\n\n\n",
                      "f.plain:2: a quote"},
        MalformedCase{"WrappedQuoteCounts", "graph 1 2 3\nnode \"a\\\nb\" oops\nstop",
                      "f.plain:3: \"oops\""},
        MalformedCase{"TooMuch", twoBoxes + "stop now\n", "f.plain:4: \"now\""}),
    rowName);

} // namespace
} // namespace TovaView
