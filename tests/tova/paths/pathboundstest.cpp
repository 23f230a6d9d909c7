#include "pathsamples.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace Tova2 {
namespace {

constexpr QSize kSheet(260, 260);

std::vector<std::pair<std::string, Node>> allPaths()
{
    std::vector<std::pair<std::string, Node>> nodes;
    for (const auto& sample : linearSamples()) {
        nodes.emplace_back(sample.name + ", closed", LinearPathNode(sample.points));
        for (const auto corner : {CornerStyle::Sharp, CornerStyle::Rounded, CornerStyle::Bevel}) {
            OpenLinearPathNode open(sample.points);
            open.setCornerStyle(corner);
            open.setRoundedCornerRadius(9);
            nodes.emplace_back(sample.name + ", corners " + std::to_string(int(corner)), open);
        }
    }
    const std::vector<Vertex> vertices{{{-30, 0}, {20, -60}, {-20, 60}},
                                       {{30, -20}, {10, 30}, {-70, -10}},
                                       {{0, 30}, {-30, 0}, {0, 0}}};
    nodes.emplace_back("Curve, closed", CurvedPathNode(vertices));
    nodes.emplace_back("Curve, open", OpenCurvedPathNode(vertices));
    return nodes;
}

void expectCovered(const Node& node, const std::string& name)
{
    const QRectF rect = Vetra::toQt(node.getBoundingRect());
    const QRectF painted = touched(pictureOf(node, kSheet));
    const QRectF repainted = rect.adjusted(-1, -1, 1, 1).toAlignedRect();
    EXPECT_TRUE(painted.isEmpty() || repainted.contains(painted))
        << name << ": painted x " << painted.left() << " .. " << painted.right() << ", y "
        << painted.top() << " .. " << painted.bottom() << ", bounds x " << rect.left() << " .. "
        << rect.right() << ", y " << rect.top() << " .. " << rect.bottom();
}

TEST(PathBounds, CoverEveryPaintedPixel)
{
    for (auto& [name, node] : allPaths()) {
        for (const auto line : {StrokeStyle::SolidLine, StrokeStyle::DotLine})
            for (const auto cap : {StrokeCapStyle::FlatCap, StrokeCapStyle::SquareCap})
                for (const auto join : {StrokeJoinStyle::MiterJoin, StrokeJoinStyle::BevelJoin,
                                        StrokeJoinStyle::RoundJoin, StrokeJoinStyle::SvgMiterJoin})
                    for (const double width : {0.0, 4.5, 14.0}) {
                        node.setDrawStyle(lineStyle(width, line, cap, join));
                        expectCovered(node, name + ", line " + std::to_string(int(line)) +
                                                ", cap " + std::to_string(int(cap)) + ", join " +
                                                std::to_string(int(join)) + ", width " +
                                                std::to_string(width));
                    }
    }
}

TEST(PathBounds, CoverStrokesOfTheirOwn)
{
    for (const auto& sample : linearSamples()) {
        for (const bool isClosed : {false, true}) {
            LinearPathNode node =
                isClosed ? LinearPathNode(sample.points) : OpenLinearPathNode(sample.points);
            node.setDrawStyle(lineStyle(1));
            node.setStrokes({Stroke::NoStroke(), lineStyle(20).stroke()});
            expectCovered(node, sample.name);
        }
    }
}

// What scenes allow for: the geometry at a view scale, and so many widths of the node's own stroke.
TEST(PathBounds, AllowForStrokesAtOtherScales)
{
    constexpr double kScale = 0.25;
    for (const double own : {0.0, 3.0}) {
        OpenLinearPathNode node({{-120, -40}, {100, -60}, {-120, -80}});
        node.setDrawStyle(lineStyle(own));
        Stroke constant = lineStyle(6).stroke();
        constant.setScaleFunction(ConstantLodScale::instance());
        for (const Stroke& stroke : {Stroke(StrokeStyle::SolidLine), constant}) {
            node.setStrokes({stroke, stroke});
            const NodeImpl& impl = implOf(node);
            const QRectF rect = impl.strokedRectAt(kScale).adjusted(-4, -4, 4, 4);
            const QRectF painted = touched(pictureOf(node, kSheet, kScale));
            EXPECT_TRUE(rect.contains(QRectF(painted.topLeft() / kScale, painted.size() / kScale)));
            EXPECT_EQ(impl.geometryDependsOnScale(), own > 0 || stroke == constant);
        }
    }
}

struct TightCase {
    const char* name;
    std::vector<Vertex> vertices;
    Vetra::GLRect<double> rect;
    friend void PrintTo(const TightCase& row, std::ostream* out) { *out << row.name; }
};
class TightCurveTest : public testing::TestWithParam<TightCase> {};

TEST_P(TightCurveTest, GeometryIsTheCurvesOwn)
{
    const auto rect = OpenCurvedPathNode(GetParam().vertices).getGeometryRect();
    const auto& expected = GetParam().rect;
    EXPECT_NEAR(rect.x, expected.x, 1e-9);
    EXPECT_NEAR(rect.y, expected.y, 1e-9);
    EXPECT_NEAR(rect.width, expected.width, 1e-9);
    EXPECT_NEAR(rect.height, expected.height, 1e-9);
}

// An arch with both control points at height h reaches 3/4 of it.
INSTANTIATE_TEST_SUITE_P(
    Paths, TightCurveTest,
    testing::Values(
        TightCase{"Arch", {{{0, 0}, {0, -40}, {}}, {{60, 0}, {}, {0, -40}}}, {0, -30, 60, 30}},
        TightCase{"Straight", {{{0, 5}, {}, {}}, {{60, 5}, {}, {}}}, {0, 5, 60, 0}},
        // 3 s²t - 3 st² of 60: extremes at t = (3 ± √3) / 6, where it is ± 60/(2√3)
        TightCase{"Wave",
                  {{{0, 0}, {20, 60}, {}}, {{60, 0}, {}, {-20, -60}}},
                  {0, -30 / std::sqrt(3.0), 60, 60 / std::sqrt(3.0)}},
        TightCase{"Overshoot", {{{0, 0}, {-40, 0}, {}}, {{0, 80}, {}, {-40, 0}}}, {-30, 0, 30, 80}},
        TightCase{"OneVertex", {{{7, 8}, {20, 20}, {}}}, {7, 8, 0, 0}}, TightCase{"None", {}, {}}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(PathBounds, AConnectorIsAsHighAsItsStroke)
{
    OpenLinearPathNode node({{0, 10}, {50, 10}, {50, 30}});
    node.setStroke(lineStyle(4).stroke());
    EXPECT_EQ(node.getBoundingRect(), (Vetra::GLRect<double>{-2, 8, 54, 24}));
    EXPECT_EQ(node.getGeometryRect(), (Vetra::GLRect<double>{0, 10, 50, 20}));
    node.append({80, 30});
    EXPECT_EQ(node.getBoundingRect(), (Vetra::GLRect<double>{-2, 8, 84, 24}));
    node.setStrokes({lineStyle(10).stroke()});
    EXPECT_EQ(node.getBoundingRect(), (Vetra::GLRect<double>{-5, 5, 87, 27}));
}

} // namespace
} // namespace Tova2
