#include "nodes/ellipsenodeimpl.h"
#include "nodes/fancyroundedrectnodeimpl.h"
#include "nodes/linenodeimpl.h"
#include "nodes/nodechangesink.h"
#include "nodes/paintcontext.h"
#include "nodes/roundedrectnodeimpl.h"
#include "nodes/shapenodeimpl.h"

#include "support/rows.h"
#include "tova/nodes/compositenode.h"
#include "tova/nodes/containernode.h"
#include "tova/nodes/customnode.h"
#include "tova/nodes/ellipsenode.h"
#include "tova/nodes/fancyroundedrectnode.h"
#include "tova/nodes/linenode.h"
#include "tova/nodes/rectnode.h"
#include "tova/nodes/roundedrectnode.h"
#include "tova/nodes/shapenode.h"
#include "tova/nodes/style/lodscale.h"
#include "tova/nodes/textnode.h"
#include "tova/scene/scene.h"
#include "vetra/error.h"
#include "vetra/qt.h"

#include <QPainter>

#include <functional>

namespace Tova2 {
namespace {

using Point = Vetra::GLPoint<double>;
using Rect = Vetra::GLRect<double>;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

struct CountingSink final : NodeChangeSink {
    void nodeChanged(NodeImpl&, ChangeLevel level) override
    {
        if (level == ChangeLevel::Geometry)
            ++count;
    }
    int count = 0;
};

/// A node of each kind whose changes of geometry are counted from here on.
struct Watched {
    Watched()
    {
        rounded.setRect({0, 0, 40, 30});
        rounded.setRadius(5);
        fancy.setRect({0, 0, 40, 30});
        ellipse.setEllipse(Ellipse(Rect{0, 0, 40, 30}));
        line.setLine({0, 0}, {10, 10});
        shape.setShape(triangle());
        for (Node* const node :
             {static_cast<Node*>(&rounded), static_cast<Node*>(&fancy),
              static_cast<Node*>(&ellipse), static_cast<Node*>(&line), static_cast<Node*>(&shape)})
            static_cast<NodeImpl*>(const_cast<Vetra::Referenced*>(node->getReferenced()))
                ->setChangeSink(&sink);
    }
    static Vetra::Shape triangle()
    {
        Vetra::Shape shape;
        shape.addPolygon({{0, 0}, {10, 0}, {0, 10}});
        return shape;
    }

    CountingSink sink;
    RoundedRectNode rounded;
    FancyRoundedRectNode fancy;
    EllipseNode ellipse;
    LineNode line;
    ShapeNode shape;
};

struct SetterCase : NamedRow {
    void (*change)(Watched&);
    int reports;
};
class SetterTest : public testing::TestWithParam<SetterCase> {};

TEST_P(SetterTest, ReportsWhatItTakes)
{
    Watched watched;
    GetParam().change(watched);
    EXPECT_EQ(watched.sink.count, GetParam().reports);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, SetterTest,
    testing::Values(
        SetterCase{"SameRect", [](Watched& w) { w.rounded.setRect(Rect(0, 0, 40, 30)); }, 0},
        SetterCase{"OtherRect", [](Watched& w) { w.rounded.setRect(Rect(0, 0, 40, 30.00001)); }, 1},
        SetterCase{"RectWithNaN", [](Watched& w) { w.rounded.setRect(Rect(0, kNaN, 40, 30)); }, 0},
        SetterCase{"RectThatOverflows",
                   [](Watched& w) { w.fancy.setRect(Rect(1e308, 0, 1e308, 30)); }, 0},
        SetterCase{"RadiusOfZero", [](Watched& w) { w.rounded.setRadius(0); }, 0},
        SetterCase{"NegativeRadius", [](Watched& w) { w.rounded.setRadius(-2); }, 0},
        SetterCase{"RadiusOfNaN", [](Watched& w) { w.rounded.setRadius(kNaN); }, 0},
        SetterCase{"InfiniteRadius", [](Watched& w) { w.rounded.setRadius(kInfinity); }, 0},
        SetterCase{"NearlyTheRadius", [](Watched& w) { w.rounded.setRadius(5.00005); }, 0},
        SetterCase{"AnotherRadius", [](Watched& w) { w.rounded.setRadius(5.001); }, 1},
        SetterCase{"CornerRadius", [](Watched& w) { w.fancy.setTopLeftCornerRadius(1); }, 1},
        SetterCase{"CornerRadiusOfZero",
                   [](Watched& w) {
                       w.fancy.setBottomRightCornerRadius(4);
                       w.fancy.setBottomRightCornerRadius(0);
                   },
                   2},
        SetterCase{"NegativeCornerRadius", [](Watched& w) { w.fancy.setTopRightCornerRadius(-1); },
                   0},
        SetterCase{"NearlyTheWidth", [](Watched& w) { w.ellipse.setWidth(40.00005); }, 0},
        SetterCase{"AnotherWidth", [](Watched& w) { w.ellipse.setWidth(40.001); }, 1},
        SetterCase{"HeightOfNaN", [](Watched& w) { w.ellipse.setHeight(kNaN); }, 0},
        SetterCase{"CenterOfInfinity", [](Watched& w) { w.ellipse.setCenter(Point(0, kInfinity)); },
                   0},
        SetterCase{"AlignmentOfNaN", [](Watched& w) { w.ellipse.setWidthToPixelAlignCenter(kNaN); },
                   0},
        SetterCase{"AnotherAlignment", [](Watched& w) { w.ellipse.setWidthToPixelAlignCenter(2); },
                   1},
        SetterCase{"LineAtOnce", [](Watched& w) { w.line.setLine(Point(1, 1), Point(2, 2)); }, 1},
        SetterCase{"SameStart", [](Watched& w) { w.line.setStart(Point(0, 0)); }, 0},
        SetterCase{"EndOfNaN", [](Watched& w) { w.line.setEnd(Point(kNaN, 0)); }, 0},
        SetterCase{"EqualShape", [](Watched& w) { w.shape.setShape(Watched::triangle()); }, 0},
        SetterCase{"AnotherShape", [](Watched& w) { w.shape.setShape(Vetra::Shape()); }, 1}),
    rowName);

TEST(EllipseNodeTest, KeepsWhatASizeOrACenterLeavesAlone)
{
    EllipseNode node(Ellipse(Rect{10, 20, 40, 30}));
    node.setWidth(60);
    node.setHeight(10);
    EXPECT_EQ(node.getEllipse().rect(), (Rect{10, 20, 60, 10}));
    node.setCenter({0, 0});
    EXPECT_EQ(node.getEllipse().rect(), (Rect{-30, -5, 60, 10}));
    EXPECT_EQ(node.getCenter(), (Point{0, 0}));
    EXPECT_EQ(node.getSize(), (Vetra::Size<double>{60, 10}));
}

struct HostScale final : LodScale {
    explicit HostScale(double f) : factor(f) {}
    double scale(double viewScale) const override { return viewScale == 1 ? 1 : factor; }
    double factor;
};

TEST(EllipseNodeTest, ScalesAboutItsCenter)
{
    EllipseNode node(Ellipse(Rect{10, 20, 40, 30}));
    EXPECT_EQ(node.getScaledWidth(0.1), 40.0);
    HostScale scale(3);
    node.setLodScale(&scale);
    EXPECT_EQ(node.getScaledWidth(0.5), 120.0);
    EXPECT_EQ(node.getScaledHeight(0.5), 90.0);
    EXPECT_EQ(node.getWidth(), 40.0);
    const auto* const impl = static_cast<const NodeImpl*>(node.getReferenced());
    EXPECT_EQ(impl->geometryRectAt(0.5), QRectF(-30, -10, 120, 90));
    EXPECT_TRUE(impl->geometryDependsOnScale());
    for (const double broken : {kNaN, kInfinity, -1.0}) {
        scale.factor = broken;
        EXPECT_TRUE(std::isfinite(node.getScaledWidth(0.5))) << broken;
        EXPECT_GE(node.getScaledWidth(0.5), 0.0) << broken;
    }
    node.setLodScale(nullptr);
}

/// Where an ellipse 6 wide around (x, x) is drawn in a scene at scale 1: the mean of its columns.
double drawnCenter(double x, double pixelAlign, bool isInScene)
{
    EllipseNode node(Ellipse(Rect{x - 3, x - 3, 6, 6}));
    DrawStyle style;
    style.setStroke(Stroke::NoStroke());
    style.setFill(Fill(Vetra::Color::fromPacked(0xff000000)));
    style.setIsAntiAliased(true);
    node.setDrawStyle(style);
    node.setWidthToPixelAlignCenter(pixelAlign);
    QImage image(24, 24, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    if (isInScene) {
        const Vetra::Holder<Scene> scene = Scene::createScene();
        scene->addNode(node);
        scene->render(painter, {0, 0, 24, 24}, {0, 0, 24, 24});
    } else {
        PaintContext context(painter, QTransform(), PaintOptions());
        context.enter(QPointF());
        static_cast<const NodeImpl*>(node.getReferenced())->paintNode(context);
    }
    double weight = 0, moment = 0;
    for (int row = 0; row < 24; ++row) {
        for (int column = 0; column < 24; ++column) {
            const double ink = 255 - qGray(image.pixel(column, row));
            weight += ink;
            moment += ink * (column + 0.5);
        }
    }
    return moment / weight;
}

TEST(EllipseNodeTest, DrawsItsCenterOnAPixelCornerWhenAsked)
{
    EXPECT_NEAR(drawnCenter(10.3, -1, true), 10.3, 0.05);
    EXPECT_NEAR(drawnCenter(10.3, 1, true), 10.0, 0.05);
    EXPECT_NEAR(drawnCenter(10.3, 1, false), 10.3, 0.05);
}

TEST(ShapeNodesTest, KnowTheirOwnKind)
{
    const std::vector<std::pair<Node, std::string>> kinds{
        {RectNode(), "Tova2.RectNode"},
        {TextNode(), "Tova2.TextNode"},
        {RoundedRectNode(), "Tova2.RoundedRectNode"},
        {FancyRoundedRectNode(), "Tova2.FancyRoundedRectNode"},
        {EllipseNode(), "Tova2.EllipseNode"},
        {LineNode(), "Tova2.LineNode"},
        {ShapeNode(), "Tova2.ShapeNode"},
        {ContainerNode(), "Tova2.ContainerNode"},
        {CompositeNode(), "Tova2.CompositeNode"},
        {CustomNode(), "Tova2.CustomNode"},
    };
    for (const auto& [node, name] : kinds) {
        EXPECT_STREQ(node.getFullyQualifiedKobjTypeName(), name.c_str());
        EXPECT_TRUE(node.isa("Tova2.Node")) << name;
        EXPECT_FALSE(node.isa(nullptr) || node.isa("Tova2.Nod")) << name;
        for (const auto& other : kinds)
            EXPECT_EQ(node.isa(other.second.c_str()), other.second == name) << name;
    }
}

TEST(ShapeNodesTest, PropertiesReachTheirValuesAndNoOtherKind)
{
    FancyRoundedRectNode fancy;
    const auto& property = FancyRoundedRectNode::BottomLeftCornerRadiusProperty();
    EXPECT_EQ(property.name, Vetra::StringID("BottomLeftCornerRadius"));
    property.set(fancy, 7);
    EXPECT_EQ(fancy.getBottomLeftCornerRadius(), 7.0);
    EXPECT_EQ(property.get(fancy), 7.0);
    RoundedRectNode rounded;
    RoundedRectNode::RectProperty().set(rounded, {1, 2, 3, 4});
    EXPECT_EQ(rounded.getRect(), (Rect{1, 2, 3, 4}));
    EXPECT_THROW(RoundedRectNode::RectProperty().get(fancy), Vetra::Error);
}

TEST(ShapeNodesTest, HugeFiniteGeometryHasDefinedAnswers)
{
    constexpr double kHuge = 1e307;
    constexpr double kHugeOnPaths = 1e120; // the toolkit's paths end at 1e128
    Vetra::Shape curve;
    curve.cubicTo({kHugeOnPaths, -kHugeOnPaths}, {-kHugeOnPaths, kHugeOnPaths},
                  {kHugeOnPaths, kHugeOnPaths});
    ShapeNode shape(curve);
    LineNode line({-kHuge, -kHuge}, {kHuge, kHuge});
    EllipseNode ellipse(Ellipse(Rect{-kHuge, -kHuge, 2 * kHuge, 2 * kHuge}));
    for (const Node* const node :
         {static_cast<const Node*>(&shape), static_cast<const Node*>(&line),
          static_cast<const Node*>(&ellipse)}) {
        EXPECT_TRUE(std::isfinite(node->getBoundingRect().right()));
        EXPECT_FALSE(node->contains({kNaN, 0}));
        EXPECT_FALSE(node->contains({0, kInfinity}));
        EXPECT_TRUE(node->intersects(node->getBoundingRect()))
            << node->getFullyQualifiedKobjTypeName();
    }
    EXPECT_TRUE(line.contains({5, 5}));
}

} // namespace
} // namespace Tova2
