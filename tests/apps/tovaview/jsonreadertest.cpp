#include "jsonreader.h"
#include "support/rows.h"
#include "temporaryfolder.h"

#include <gmock/gmock.h>

namespace TovaView {
namespace {

Diagram read(const QByteArray& json, const QHash<QString, QString>& families = {})
{
    return readJson(QStringLiteral("f.dot"), json, families);
}

/// A graph of one block whose drawing is `operations`.
QByteArray blockWith(const QByteArray& operations)
{
    return R"~({"name":"g","bb":"0,0,100,50","_subgraph_cnt":0,"objects":[
        {"_gvid":0,"name":"n","pos":"50,20","width":"1","height":"0.5","_draw_":[)~" +
           operations + "]}]}";
}

Drawing drawingOf(const QByteArray& operations)
{
    return read(blockWith(operations)).blocks.at(0).drawing;
}

TEST(JsonReaderTest, BlocksHaveTheirFrameWithYDown)
{
    const Diagram diagram = read(blockWith(""));
    EXPECT_EQ(diagram.bounds, (Rect{0, 0, 100, 50}));
    EXPECT_EQ(diagram.blocks.at(0).frame, (Rect{14, 12, 72, 36}));
}

TEST(JsonReaderTest, StateHoldsUntilChanged)
{
    const Drawing drawing = drawingOf(R"~({"op":"c","color":"#ff0000"},{"op":"S","style":"dashed"},
        {"op":"S","style":"setlinewidth(3)"},{"op":"C","color":"#00ff0080"},
        {"op":"P","points":[[0,0],[10,0],[10,50]]},{"op":"p","points":[[0,0],[10,0],[10,50]]})~");
    ASSERT_EQ(drawing.figures.size(), 2u);
    const Figure& filled = drawing.figures[0];
    EXPECT_EQ(filled.points, (Points{{0, 50}, {10, 50}, {10, 0}}));
    EXPECT_EQ(filled.fill->color.packed(), 0x8000ff00u);
    EXPECT_EQ(filled.line->color.packed(), 0xffff0000u);
    EXPECT_EQ(filled.line->dash, Dash::Dashed);
    EXPECT_EQ(filled.line->width, 3);
    EXPECT_FALSE(drawing.figures[1].fill);
}

TEST(JsonReaderTest, GradientsKeepTheirStops)
{
    const Drawing drawing = drawingOf(R"~({"op":"C","grad":"radial","p0":[10,10,2],"p1":[20,10,8],
        "stops":[{"frac":0.25,"color":"#ff0000"},{"frac":1,"color":"#0000ff"}]},
        {"op":"E","rect":[10,10,5,4]})~");
    const Figure& figure = drawing.figures.at(0);
    EXPECT_EQ(figure.points, (Points{{5, 36}, {15, 44}}));
    ASSERT_TRUE(figure.fill->gradient);
    EXPECT_TRUE(figure.fill->gradient->radial);
    EXPECT_EQ(figure.fill->gradient->to, (Point{20, 40}));
    EXPECT_EQ(figure.fill->gradient->toRadius, 8);
    EXPECT_EQ(figure.fill->gradient->stops.at(0).position, 0.25);
}

TEST(JsonReaderTest, TextTakesFontFlagsAndColour)
{
    const Diagram diagram =
        read(blockWith(R"~({"op":"F","size":10,"face":"Courier-Bold"},{"op":"c","color":"#123456"},
            {"op":"t","fontchar":6},{"op":"T","pt":[5,40],"align":"r","width":33,"text":"caf)~"
                       "\xc3\xa9"
                       R"~("})~"),
             {{QStringLiteral("Courier-Bold"), QStringLiteral("Some Mono")}});
    const TextPiece& text = diagram.blocks.at(0).drawing.texts.at(0);
    EXPECT_EQ(text.text, QString::fromUtf8("caf\xc3\xa9"));
    EXPECT_EQ(text.family, QStringLiteral("Some Mono"));
    EXPECT_TRUE(text.bold && text.italic && text.underline && !text.strikeOut);
    EXPECT_EQ(text.anchor, (Point{5, 10}));
    EXPECT_EQ(text.align, Align::Right);
    EXPECT_EQ(text.width, 33);
    EXPECT_EQ(text.color.packed(), 0xff123456u);
}

TEST(JsonReaderTest, WhatCannotBeDrawnIsLeftOut)
{
    const Drawing drawing = drawingOf(R"~({"op":"p","points":[[0,0],[1e300,0],[1,1]]},
        {"op":"b","points":[[0,0],[1,0],[1,1]]},{"op":"p","points":[[0],["x",1]]},{"op":"L"},
        {"op":"e","rect":[1,2]},{"op":"T","text":"x"},{"op":"I","name":"/etc/passwd"},{"op":"??"},7,
        {"op":"c","color":"#fffffe00"},{"op":"p","points":[[0,0],[1,0],[1,1]]})~");
    EXPECT_TRUE(drawing.empty());
}

const QByteArray clustered = R"~({"name":"g","directed":true,"bb":"0,0,100,50","_subgraph_cnt":3,
    "objects":[
      {"name":"cluster_in","_gvid":0,"bb":"10,10,50,40","nodes":[3]},
      {"name":"plain","_gvid":1,"subgraphs":[0,99],"nodes":[4]},
      {"name":"cluster_out","_gvid":2,"bb":"0,0,100,50","subgraphs":[1],"nodes":[3,4]},
      {"name":"a","_gvid":3,"pos":"20,20","width":"1","height":"1"},
      {"name":"b","_gvid":4,"pos":"60,20","width":"1","height":"1"}],
    "edges":[{"tail":3,"head":4,"_draw_":[{"op":"b","points":[[0,0],[0,0],[9,0],[9,0]]}]},
             {"tail":3,"head":77}]})~";

TEST(JsonReaderTest, ClustersNestThroughPlainSubgraphs)
{
    const Diagram diagram = read(clustered);
    ASSERT_EQ(diagram.clusters.size(), 2u);
    EXPECT_EQ(diagram.clusters[0].id, QStringLiteral("cluster_out"));
    EXPECT_EQ(diagram.clusters[1].parent, 0);
    EXPECT_EQ(diagram.clusters[1].frame, (Rect{10, 10, 40, 30}));
    EXPECT_EQ(diagram.blocks.at(0).cluster, 1);
    EXPECT_EQ(diagram.blocks.at(1).cluster, 0);
}

TEST(JsonReaderTest, ConnectorsWithoutBlocksAreLeftOut)
{
    const Diagram diagram = read(clustered);
    ASSERT_EQ(diagram.connectors.size(), 1u);
    EXPECT_EQ(diagram.connectors[0].id, QStringLiteral("a -> b"));
    EXPECT_EQ(diagram.connectors[0].lines.at(0).points, (Points{{0, 50}, {9, 50}}));
}

/// A connector drawn as `curve`, with a head that dot has drawn somewhere.
Connector connectorAlong(const char* curve, const char* positions)
{
    QByteArray text = clustered;
    text.replace(R"~("points":[[0,0],[0,0],[9,0],[9,0]]}])~",
                 QByteArray(R"~("points":)~") + curve + R"~(}],"pos":")~" + positions +
                     R"~(","_hdraw_":[{"op":"P","points":[[9,2],[18,0],[9,-2]]}])~");
    return read(text).connectors.at(0);
}

struct EndingCase : NamedRow {
    const char* curve;
    const char* positions;
    Points points; ///< of the line, led on to the tip
    Point direction;
};
class JsonEndingTest : public testing::TestWithParam<EndingCase> {};

TEST_P(JsonEndingTest, LeadsTheLineToItsTip)
{
    const EndingCase& row = GetParam();
    const Connector connector = connectorAlong(row.curve, row.positions);
    EXPECT_EQ(connector.lines.at(0).points, row.points);
    ASSERT_TRUE(connector.headEnding && !connector.tailEnding);
    EXPECT_EQ(connector.headEnding->kind, QStringLiteral("normal"));
    EXPECT_NEAR(connector.headEnding->direction.x, row.direction.x, 1e-5);
    EXPECT_EQ(connector.headEnding->direction.y, row.direction.y);
}

INSTANTIATE_TEST_SUITE_P(
    Json, JsonEndingTest,
    testing::Values(
        EndingCase{
            "Straight", "[[0,0],[0,0],[9,0],[9,0]]", "e,19,0 0,0", {{0, 50}, {19, 50}}, {1, 0}},
        EndingCase{"UprightStaysUpright",
                   "[[0,0],[0,0],[9,0],[9,0]]",
                   "e,19,0.01 0,0",
                   {{0, 50}, {19, 50}},
                   {1, 0}},
        EndingCase{"RoundACorner",
                   "[[0,0],[0,0],[9,0],[9,0]]",
                   "e,9,10 0,0",
                   {{0, 50}, {9, 50}, {9, 40}},
                   {0, -1}},
        EndingCase{"Curve",
                   "[[0,0],[0,9],[9,9],[9,0]]",
                   "e,9,-10 0,0",
                   {{0, 50}, {0, 41}, {9, 41}, {9, 50}, {9, 50}, {9, 60}, {9, 60}},
                   {0, 1}},
        EndingCase{"SeveralTipsStayWhereDrawn",
                   "[[0,0],[0,0],[9,0],[9,0]]",
                   "e,19,0 0,0;e,9,9 0,0",
                   {{0, 50}, {9, 50}},
                   {}},
        EndingCase{"NoNumbersStayWhereDrawn",
                   "[[0,0],[0,0],[9,0],[9,0]]",
                   "e,nan,0 e,1e300,1",
                   {{0, 50}, {9, 50}},
                   {}}),
    rowName);

TEST(JsonReaderTest, SubgraphsInACircleEnd)
{
    EXPECT_TRUE(read(R"~({"bb":"0,0,1,1","_subgraph_cnt":1,"objects":[
        {"name":"cluster","bb":"0,0,1,1","subgraphs":[0]}]})~")
                    .clusters.empty());
    EXPECT_EQ(read(R"~({"bb":"0,0,1,1","_subgraph_cnt":2,"objects":[
        {"name":"cluster","bb":"0,0,1,1","subgraphs":[1,1]},
        {"name":"cluster2","bb":"0,0,1,1","subgraphs":[1]}]})~")
                  .clusters.size(),
              2u);
}

TEST(JsonReaderTest, GraphsComeSideBySide)
{
    int count = 0;
    const Diagram diagram =
        readJson(QStringLiteral("f.dot"), blockWith("") + "\n" + blockWith(""), {}, &count);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(diagram.blocks.at(1).frame.x - diagram.blocks.at(0).frame.x, 124);
}

TEST(JsonReaderTest, ControlCharactersAndLatin1DoNotBreakIt)
{
    const Diagram diagram = read("{\"name\":\"\x01\xe9\",\"bb\":\"0,0,9,9\"}");
    EXPECT_EQ(diagram.name, QString::fromUtf8(" \xc3\xa9"));
}

TEST(JsonReaderTest, DamageIsAnError)
{
    for (const char* text : {"", "[]", "{", "{\"a\":}", "{\"a\":1}{\"b\""})
        EXPECT_THAT(complaintOf([&] { read(text); }), testing::StartsWith("f.dot: ")) << text;
}

} // namespace
} // namespace TovaView
