#include "pathsamples.h"

#include "nodes/nodechangesink.h"

#include "vetra/error.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>

namespace Tova2 {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct CountingSink final : NodeChangeSink {
    void nodeChanged(NodeImpl&, ChangeLevel level) override
    {
        count += level == ChangeLevel::Geometry;
    }
    int count = 0;
};

struct Watched {
    Watched()
    {
        implOf(line).setChangeSink(&sink);
        implOf(curve).setChangeSink(&sink);
    }
    CountingSink sink;
    OpenLinearPathNode line{{{0, 0}, {10, 0}, {10, 10}}};
    OpenCurvedPathNode curve{{{{0, 0}, {1, 0}, {-1, 0}}, {{10, 0}, {0, 1}, {0, -1}}}};
};

struct SetterCase {
    const char* name;
    void (*change)(Watched&);
    int reports;
    const char* error;
    friend void PrintTo(const SetterCase& row, std::ostream* out) { *out << row.name; }
};
class PathSetterTest : public testing::TestWithParam<SetterCase> {};

TEST_P(PathSetterTest, ReportsWhatItTakesAndNamesWhatItRefuses)
{
    Watched watched;
    const auto points = watched.line.getPoints();
    const auto vertices = watched.curve.getVertices();
    std::string key;
    try {
        GetParam().change(watched);
    } catch (const Vetra::Error& error) {
        EXPECT_EQ(error.group(), "tova:nodes");
        key = error.key();
    }
    EXPECT_EQ(key, GetParam().error);
    EXPECT_EQ(watched.sink.count, GetParam().reports);
    if (GetParam().reports == 0) {
        EXPECT_EQ(watched.line.getPoints(), points);
        EXPECT_EQ(watched.curve.getVertices(), vertices);
    }
}

using W = Watched;
INSTANTIATE_TEST_SUITE_P(
    Paths, PathSetterTest,
    testing::Values(
        SetterCase{"SamePoint",
                   [](W& w) {
                       w.line.setPoint(1, {10, 0});
                   },
                   0, ""},
        SetterCase{"OtherPoint",
                   [](W& w) {
                       w.line.setPoint(1, {10, 1e-9});
                   },
                   1, ""},
        SetterCase{"PointOfNaN",
                   [](W& w) {
                       w.line.setPoint(1, {kNaN, 0});
                   },
                   0, ""},
        SetterCase{"PointBeyondTheEnd",
                   [](W& w) {
                       w.line.setPoint(3, {1, 1});
                   },
                   0, "InvalidLinearPathIndex"},
        SetterCase{"PointOfNaNBeyondTheEnd",
                   [](W& w) {
                       w.line.setPoint(3, {kNaN, 1});
                   },
                   0, "InvalidLinearPathIndex"},
        SetterCase{"NegativeIndex", [](W& w) { w.line.getPoint(-1); }, 0, "InvalidLinearPathIndex"},
        SetterCase{"IndexOfTheCount", [](W& w) { w.line.getPoint(w.line.pointsCount()); }, 0,
                   "InvalidLinearPathIndex"},
        SetterCase{"OneInfiniteAmongPoints",
                   [](W& w) {
                       w.line.setPoints({{1, 1}, {kInfinity, 0}});
                   },
                   0, ""},
        SetterCase{"AppendedPoint",
                   [](W& w) {
                       w.line.append({1, 2});
                   },
                   1, ""},
        SetterCase{"AppendedNaN",
                   [](W& w) {
                       w.line.append({1, kNaN});
                   },
                   0, ""},
        SetterCase{"NegativeScale", [](W& w) { w.line.scale(-1); }, 0, "NegativeLinearPathScale"},
        SetterCase{"ScaleOfOne", [](W& w) { w.line.scale(1); }, 0, ""},
        SetterCase{"ScaleThatOverflows", [](W& w) { w.line.scale(1e308); }, 0, ""},
        SetterCase{"ScaleOfNaN", [](W& w) { w.line.scale(kNaN); }, 0, ""},
        SetterCase{"ScaleOfZero", [](W& w) { w.line.scale(0); }, 1, ""},
        SetterCase{"Translation",
                   [](W& w) {
                       w.line.translate({1, 1});
                   },
                   1, ""},
        SetterCase{"NoStrokes", [](W& w) { w.line.setStrokes({}); }, 0, ""},
        SetterCase{"Strokes", [](W& w) { w.line.setStrokes({Stroke::NoStroke()}); }, 1, ""},
        SetterCase{"CornersAsTheyAre", [](W& w) { w.line.setCornerStyle(CornerStyle::Sharp); }, 0,
                   ""},
        SetterCase{"NegativeRadius", [](W& w) { w.line.setRoundedCornerRadius(-1); }, 0, ""},
        SetterCase{"RadiusOfNaN", [](W& w) { w.line.setRoundedCornerRadius(kNaN); }, 0, ""},
        SetterCase{"OtherRadius", [](W& w) { w.line.setRoundedCornerRadius(9); }, 1, ""},
        SetterCase{"SameVertex",
                   [](W& w) {
                       w.curve.setVertexPosition(0, {0, 0});
                   },
                   0, ""},
        SetterCase{"OtherTangent",
                   [](W& w) {
                       w.curve.setVertexForwardTangent(0, {2, 0});
                   },
                   1, ""},
        SetterCase{"TangentOfNaN",
                   [](W& w) {
                       w.curve.setVertexBackwardTangent(0, {2, kNaN});
                   },
                   0, ""},
        SetterCase{"ControlPointThatOverflows",
                   [](W& w) {
                       w.curve.setVertex(0, {{1e308, 0}, {1e308, 0}, {}});
                   },
                   0, ""},
        SetterCase{"VertexBeyondTheEnd", [](W& w) { w.curve.setVertexPosition(2, {}); }, 0,
                   "InvalidCurveIndex"},
        SetterCase{"VertexOfNegativeIndex", [](W& w) { w.curve.getVertex(-1); }, 0,
                   "InvalidCurveIndex"},
        SetterCase{"CurveTurnedRound", [](W& w) { w.curve.scale(-1); }, 1, ""}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PathNodes, ScaleAndTranslateChangePointsAndNotTheTransform)
{
    LinearPathNode node({{1, 2}, {3, -4}});
    node.scale(2);
    node.translate({10, 20});
    EXPECT_EQ(node.getPoints(), (Points{{12, 24}, {16, 12}}));
    EXPECT_EQ(node.getTransform(), Vetra::Transform());
    EXPECT_EQ(node.getPosition(), Point());
    node.scale(0);
    EXPECT_EQ(node.getPoints(), (Points{{0, 0}, {0, 0}}));

    CurvedPathNode curve(std::vector<Vertex>{{{1, 2}, {3, 4}, {5, 6}}});
    curve.scale(2);
    curve.translate({10, 20});
    EXPECT_EQ(curve.getVertex(0), (Vertex{{12, 24}, {6, 8}, {10, 12}}));
}

TEST(PathNodes, ThePathPropertyReachesThePoints)
{
    const auto& property = LinearPathNode::PathProperty();
    OpenLinearPathNode line({{0, 0}, {1, 1}});
    property.set(line, {{5, 5}, {6, 6}});
    EXPECT_EQ(property.get(line), (Points{{5, 5}, {6, 6}}));
    EXPECT_THROW(property.get(RectNode({0, 0, 1, 1})), Vetra::Error);
    EXPECT_THROW(property.get(LineNode({0, 0}, {1, 1})), Vetra::Error);
}

TEST(PathNodes, AnOpenPathIsAPathOfItsKind)
{
    const OpenLinearPathNode line({{0, 0}, {1, 1}});
    EXPECT_TRUE(line.isa("Tova2.OpenLinearPathNode"));
    EXPECT_TRUE(line.isa("Tova2.LinearPathNode"));
    EXPECT_TRUE(line.isa("Tova2.Node"));
    EXPECT_FALSE(line.isa("Tova2.OpenCurvedPathNode"));
    EXPECT_FALSE(LinearPathNode(Points{}).isa("Tova2.OpenLinearPathNode"));
    EXPECT_TRUE(OpenCurvedPathNode(std::vector<Vertex>{}).isa("Tova2.CurvedPathNode"));
    EXPECT_TRUE(LinearPathNode(&implOf(line)).isValid());
    EXPECT_FALSE(OpenLinearPathNode(&implOf(RectNode({0, 0, 1, 1}))).isValid());
}

} // namespace
} // namespace Tova2
