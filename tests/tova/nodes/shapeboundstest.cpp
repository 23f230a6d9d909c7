#include "shapesamples.h"

#include "nodes/ellipsenodeimpl.h"
#include "nodes/fancyroundedrectnodeimpl.h"
#include "nodes/linenodeimpl.h"
#include "nodes/nodekind.h"
#include "nodes/rectnodeimpl.h"
#include "nodes/roundedrectnodeimpl.h"
#include "nodes/shapenodeimpl.h"

#include "support/rows.h"
#include "tova/nodes/linenode.h"
#include "tova/nodes/shapenode.h"
#include "vetra/qt.h"

namespace Tova2 {
namespace {

constexpr QSize kSheet(240, 240);

/// Of the pixels that are not white, in the node's coordinates.
QRectF touched(const QImage& image)
{
    QRect area;
    for (int y = 0; y < image.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            if (line[x] != 0xffffffff)
                area |= QRect(x, y, 1, 1);
        }
    }
    return QRectF(area).translated(-image.width() / 2, -image.height() / 2);
}

std::vector<std::pair<std::string, Node>> allKinds()
{
    std::vector<std::pair<std::string, Node>> nodes;
    const auto add = [&](const std::string& name, NodeImpl* impl) {
        nodes.emplace_back(name, impl->handle());
    };
    for (const auto& sample : shapeSamples()) {
        auto* const shape = makeNode<ShapeNodeImpl>();
        shape->setFigure(Vetra::fromQt(sample.path));
        add(sample.name, shape);
    }
    for (const QLineF& line : {QLineF(-30, 0, 30, 0), QLineF(0, -30, 0, 30),
                               QLineF(-30, -20, 30, 25), QLineF(3, 4, 3, 4)}) {
        auto* const impl = makeNode<LineNodeImpl>();
        impl->setLine(line);
        add("Line to " + std::to_string(line.x2()) + " " + std::to_string(line.y2()), impl);
    }
    for (const QRectF& rect :
         {QRectF(-30, -20, 60, 40), QRectF(-20, 0, 40, 0), QRectF(-2, -2, 4, 4)}) {
        const std::string size = " of height " + std::to_string(rect.height());
        add("Rect" + size, makeNode<RectNodeImpl>(rect));
        auto* const rounded = makeNode<RoundedRectNodeImpl>();
        rounded->setRect(rect);
        rounded->setRadius(9);
        add("RoundedRect" + size, rounded);
        auto* const fancy = makeNode<FancyRoundedRectNodeImpl>();
        fancy->setRect(rect);
        fancy->setRadius(Corner::TopLeft, 50);
        fancy->setRadius(Corner::BottomRight, 5);
        add("FancyRoundedRect" + size, fancy);
        auto* const ellipse = makeNode<EllipseNodeImpl>();
        ellipse->setRect(rect);
        add("Ellipse" + size, ellipse);
    }
    return nodes;
}

struct LineCase {
    StrokeStyle line;
    StrokeCapStyle cap;
    StrokeJoinStyle join;
    double width;
};

std::vector<LineCase> allLines()
{
    std::vector<LineCase> cases;
    for (const auto line : {StrokeStyle::SolidLine, StrokeStyle::DashLine, StrokeStyle::DotLine})
        for (const auto cap :
             {StrokeCapStyle::FlatCap, StrokeCapStyle::SquareCap, StrokeCapStyle::RoundCap})
            for (const auto join : {StrokeJoinStyle::MiterJoin, StrokeJoinStyle::BevelJoin,
                                    StrokeJoinStyle::RoundJoin, StrokeJoinStyle::SvgMiterJoin})
                for (const double width : {0.0, 1.0, 4.5, 14.0})
                    cases.push_back({line, cap, join, width});
    return cases;
}

NodeImpl& implOf(const Node& node)
{
    return *static_cast<NodeImpl*>(const_cast<Vetra::Referenced*>(node.getReferenced()));
}

TEST(ShapeBounds, CoverEveryPaintedPixel)
{
    for (auto& [name, node] : allKinds()) {
        for (const auto& c : allLines()) {
            for (const bool isAntiAliased : {true, false}) {
                DrawStyle style = styleOf(c.width, c.line, c.cap, c.join);
                style.setIsAntiAliased(isAntiAliased);
                node.setDrawStyle(style);
                const QRectF rect = Vetra::toQt(node.getBoundingRect());
                const QRectF painted = touched(pictureOf(implOf(node), kSheet));
                // As a repaint takes it: a pixel more, then whole pixels.
                const QRectF repainted = rect.adjusted(-1, -1, 1, 1).toAlignedRect();
                EXPECT_TRUE(painted.isEmpty() || repainted.contains(painted))
                    << name << ", line " << int(c.line) << ", cap " << int(c.cap) << ", join "
                    << int(c.join) << ", width " << c.width << ": painted x " << painted.left()
                    << " .. " << painted.right() << ", y " << painted.top() << " .. "
                    << painted.bottom() << ", bounds x " << rect.left() << " .. " << rect.right()
                    << ", y " << rect.top() << " .. " << rect.bottom();
            }
        }
    }
}

// What scenes allow for at other view scales: the geometry and so many widths around it.
TEST(ShapeBounds, ReachCoversTheStrokeAtOtherScales)
{
    constexpr double kScale = 0.25;
    for (auto& [name, node] : allKinds()) {
        for (const auto join : {StrokeJoinStyle::MiterJoin, StrokeJoinStyle::SvgMiterJoin}) {
            DrawStyle style = styleOf(10, StrokeStyle::SolidLine, StrokeCapStyle::SquareCap, join);
            Stroke stroke = style.stroke();
            stroke.setScaleFunction(ConstantLodScale::instance());
            style.setStroke(stroke);
            node.setDrawStyle(style);
            const NodeImpl& impl = implOf(node);
            const double reach = impl.strokeReach() * stroke.width(kScale) + 1 / kScale;
            const QRectF rect = impl.geometryRectAt(kScale).adjusted(-reach, -reach, reach, reach);
            const QRectF painted = touched(pictureOf(impl, kSheet, kScale));
            const QRectF inNode(painted.topLeft() / kScale, painted.size() / kScale);
            EXPECT_TRUE(painted.isEmpty() || rect.contains(inNode)) << name;
        }
    }
}

struct TightCase : NamedRow {
    QPainterPath path;
    StrokeJoinStyle join;
    Vetra::GLRect<double> bounds;
};
class TightBoundsTest : public testing::TestWithParam<TightCase> {};

// A stroke 4 wide.
TEST_P(TightBoundsTest, AddsOnlyWhatCornersAndEndsNeed)
{
    ShapeNode node(Vetra::fromQt(GetParam().path));
    node.setDrawStyle(styleOf(4, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap, GetParam().join));
    const auto bounds = node.getBoundingRect();
    EXPECT_NEAR(bounds.x, GetParam().bounds.x, 1e-9);
    EXPECT_NEAR(bounds.y, GetParam().bounds.y, 1e-9);
    EXPECT_NEAR(bounds.width, GetParam().bounds.width, 1e-9);
    EXPECT_NEAR(bounds.height, GetParam().bounds.height, 1e-9);
}

const double kDiagonal = 2 * std::sqrt(2.0);
INSTANTIATE_TEST_SUITE_P(
    Shapes, TightBoundsTest,
    testing::Values(TightCase{"RightAnglesReachHalfTheWidth",
                              polygonOf({{0, 0}, {50, 0}, {50, 20}}, false),
                              StrokeJoinStyle::MiterJoin,
                              {-2, -2, 54, 24}},
                    TightCase{
                        "ADiamondReachesItsTips",
                        polygonOf({{0, -30}, {30, 0}, {0, 30}, {-30, 0}}, true),
                        StrokeJoinStyle::MiterJoin,
                        {-30 - kDiagonal, -30 - kDiagonal, 60 + 2 * kDiagonal, 60 + 2 * kDiagonal}},
                    TightCase{"BevelsHaveNoTips",
                              polygonOf({{0, -30}, {30, 0}, {0, 30}, {-30, 0}}, true),
                              StrokeJoinStyle::BevelJoin,
                              {-32, -32, 64, 64}},
                    TightCase{"NothingIsNothing", QPainterPath(), StrokeJoinStyle::MiterJoin, {}}),
    rowName);

TEST(ShapeBounds, ALevelLineHasTheHeightOfItsStroke)
{
    LineNode line({10, 5}, {30, 5});
    EXPECT_EQ(line.getBoundingRect().height, 1.0);
    EXPECT_EQ(line.getGeometryRect(), (Vetra::GLRect<double>{10, 5, 20, 0}));
    line.setLine({30, 5}, {10, 25});
    EXPECT_EQ(line.getGeometryRect(), (Vetra::GLRect<double>{10, 5, 20, 20}));
}

} // namespace
} // namespace Tova2
