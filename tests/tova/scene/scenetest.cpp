#include "tova/scene/scene.h"

#include "host/displayquery.h"
#include "support/rows.h"
#include "tova/tova.h"
#include "vetra/error.h"
#include "vetra/qt.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPicture>
#include <QPrinter>
#include <QTemporaryDir>

namespace {

using namespace Tova2;
using Rect = Vetra::GLRect<double>;

RectNode filled(const Rect& rect, unsigned color = 0xff0000ff)
{
    RectNode node(rect);
    node.setDrawStyle({Stroke::NoStroke(), Fill(Vetra::Color::fromPacked(color))});
    return node;
}

class SceneTest : public testing::Test {
protected:
    Vetra::Holder<Scene> m_scene = Scene::createScene();
};

TEST_F(SceneTest, StartsWithTheDocumentedSettings)
{
    EXPECT_EQ(m_scene->getSceneNodeChangeCounter(), 1u);
    EXPECT_EQ(m_scene->getMinRenderFontSize(), 5);
    EXPECT_TRUE(m_scene->pathIntersectionsEnabled());
    EXPECT_EQ(m_scene->pathIntersectionsDecoratorName(), "grad_pin");
    EXPECT_EQ(m_scene->debugRepaintRegionColor(), Vetra::Color(0, 1, 0, 0.5));
    EXPECT_FALSE(m_scene->usingDebugRepaintRegion() || m_scene->getTrackingPerformance() ||
                 m_scene->getDebugTextEditArea());
    EXPECT_TRUE(m_scene->getLODStrategyKey().empty());
    EXPECT_EQ(m_scene->getDpiX(), 72);
    EXPECT_EQ(m_scene->getDpiY(), 72);
}

TEST_F(SceneTest, ObjectsAnswerForTheTypeOfTheirClassAndOfItsBases)
{
    const EventHandler& handler = *m_scene;
    EXPECT_STREQ(handler.getFullyQualifiedKobjTypeName(), "Tova2.Scene");
    for (const char* const name : {"Tova2.Scene", "Tova2.IToolStack", "Tova2.EventHandler"})
        EXPECT_TRUE(handler.isa(name)) << name;
    EXPECT_FALSE(handler.isa("Tova2.Tool") || handler.isa(nullptr));
    const FullQualityLODStrategy strategy;
    EXPECT_TRUE(strategy.isa(LODStrategy::staticGetFullyQualifiedKobjTypeName()));
    EXPECT_FALSE(LODStrategy().isa("Tova2.FullQualityLODStrategy"));
}

TEST_F(SceneTest, CreationStylesComeOffInReverseOrder)
{
    const DrawStyle first(Stroke::NoStroke(), Fill(Vetra::Color::fromPacked(0xff111111)));
    const DrawStyle second(Stroke::NoStroke(), Fill(Vetra::Color::fromPacked(0xff222222)));
    EXPECT_EQ(m_scene->getCreationDrawStyle(), DrawStyle());
    m_scene->pushCreationDrawStyle(first);
    m_scene->pushCreationDrawStyle(second);
    EXPECT_EQ(m_scene->popCreationDrawStyle(), second);
    EXPECT_EQ(m_scene->popCreationDrawStyle(), first);
    try {
        m_scene->popCreationDrawStyle();
        FAIL() << "nothing was left to pop";
    } catch (const Vetra::Error& error) {
        EXPECT_EQ(error.group() + "/" + error.key(), "tova:scene/NoCreationDrawStyleToPop");
    }
}

TEST_F(SceneTest, CopiesShareTheContent)
{
    Vetra::Holder<Scene> copy(new Scene(*m_scene));
    RectNode node = filled({0, 0, 5, 5});
    copy->addNode(node);
    EXPECT_EQ(m_scene->getAllNodesCount(), 1u);
    m_scene.reset();
    EXPECT_EQ(node.getScene(), copy.get());
    const auto other = Scene::createScene();
    *copy = *other;
    EXPECT_EQ(node.getScene(), nullptr);
}

TEST_F(SceneTest, WithinGoesByBoundsAndIntersectingByShape)
{
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF({{0, 0}, {20, 0}, {0, 20}}));
    triangle.closeSubpath();
    ShapeNode node(Vetra::fromQt(triangle));
    node.setDrawStyle({Stroke::NoStroke(), Fill(Vetra::Color())});
    node.rotateDegrees(45); // the bounding rectangle's corners now lie far outside the shape
    m_scene->addNode(node);
    EXPECT_TRUE(m_scene->getNodesWithinRect({-15, 0, 30, 15}).empty());
    EXPECT_EQ(m_scene->getNodesWithinRect({-15, 0, 30, 29}).size(), 1u);
    EXPECT_TRUE(m_scene->getNodesIntersectingRect({8, 0, 5, 5}).empty());
    EXPECT_EQ(m_scene->getNodesIntersectingRect({-2, 10, 4, 4}).size(), 1u);
    EXPECT_EQ(m_scene->getNodesIntersectingCircle({0, -3}, 4).size(), 1u);
    EXPECT_TRUE(m_scene->getNodesIntersectingCircle({0, -3}, 2.5).empty());
}

TEST_F(SceneTest, BoundsLeaveOutWhatShowsNothing)
{
    m_scene->addNode(filled({0, 0, 10, 10}));
    m_scene->addNode(TextNode(""));
    m_scene->addNode(filled({500, 500, 0, 0}));
    RectNode hidden = filled({900, 900, 5, 5});
    hidden.setVisible(false);
    m_scene->addNode(hidden);
    EXPECT_EQ(m_scene->getBounds(), (Rect{0, 0, 10, 10}));
    hidden.setVisible(true);
    EXPECT_EQ(m_scene->getBounds(), (Rect{0, 0, 905, 905}));
}

TEST_F(SceneTest, FindsInARectangleWhatSaysThatItIsThere)
{
    const Rect all{-100, -100, 300, 300};
    OpenLinearPathNode path({{0, 0}, {50, 0}, {50, 50}});
    QPainterPath triangle;
    triangle.addPolygon(QPolygonF({{0, 0}, {10, 0}, {0, 10}}));
    ShapeNode shape(Vetra::fromQt(triangle));
    LineNode line({0, 0}, {50, 50});
    for (Node node : {Node(path), Node(shape), Node(line)}) {
        for (const Stroke& stroke : {Stroke(StrokeStyle::SolidLine), Stroke::NoStroke()}) {
            node.setStroke(stroke);
            node.setFill(Fill::NoFill());
            m_scene->addNode(node);
            EXPECT_EQ(m_scene->getNodesIntersectingRect(all).size(), node.intersects(all));
            EXPECT_EQ(node.intersects(all), !stroke.isNoStroke());
            m_scene->removeNode(node);
        }
    }
    for (Node node : {Node(RectNode()), Node(RoundedRectNode()), Node(FancyRoundedRectNode()),
                      Node(EllipseNode())}) {
        m_scene->addNode(node);
        EXPECT_TRUE(m_scene->getNodesIntersectingRect(all).empty()) << "without extent";
        EXPECT_EQ(m_scene->getBounds(), Rect()) << "without extent";
        m_scene->removeNode(node);
    }
}

/// Is hit far to the right of its node, and may take it out.
struct FarTester : CustomHitTestFunctor {
    bool contains(const Node& node, double, const Vetra::GLPoint<double>& point) const override
    {
        if (takesOut)
            Node(node).remove();
        return point.x >= 500;
    }
    bool intersects(const Node&, double, const Rect& rect) const override
    {
        return rect.right() >= 500;
    }
    bool intersects(const Node& node, double tolerance, const Bounds& area) const override
    {
        return intersects(node, tolerance, area.boundingRect());
    }
    Bounds hitTestBounds(const Node&, double) const override
    {
        return Bounds(Rect{500, 0, 10, 10});
    }
    bool takesOut = false;
};

TEST_F(SceneTest, AFunctorMayEnlargeWhereItsNodeIsHit)
{
    Vetra::Holder<FarTester> tester(new FarTester);
    RectNode node({0, 0, 10, 10}), below({500, 0, 10, 10});
    m_scene->addNode(below);
    m_scene->addNode(node);
    node.setCustomHitTestFunctor(tester.get());
    EXPECT_EQ(m_scene->getNodeAt({505, 5}), node);
    EXPECT_EQ(m_scene->getNodesAtScenePos({505, 5}), (std::vector<Node>{node, below}));
    EXPECT_EQ(m_scene->getNodesIntersectingRect({500, 0, 2, 2}), (std::vector<Node>{node, below}));
    EXPECT_FALSE(m_scene->getNodeAt({5, 5}).isValid());
    ContainerNode empty;
    m_scene->addNode(empty);
    empty.setCustomHitTestFunctor(tester.get());
    EXPECT_EQ(m_scene->getNodesWithinRect({490, -1, 30, 30}), std::vector<Node>{below});
    empty.remove();
    tester->takesOut = true;
    EXPECT_EQ(m_scene->getNodeAt({505, 5}), below);
    m_scene->addNode(node);
    node.setCustomHitTestFunctor(nullptr);
    EXPECT_EQ(m_scene->getNodeAt({505, 5}), below);
}

std::string errorOfCreation()
{
    try {
        Scene::createScene();
    } catch (const Vetra::Error& error) {
        return error.group() + "/" + error.key();
    }
    return {};
}

// In a process of its own, which asks once.
TEST(SceneDeathTest, IsRefusedWithoutADisplay)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    const auto create = [] {
        int asked = 0;
        const Host::ScopedDisplayQuery none([&] { return ++asked > 1; });
        for (int i = 0; i < 2; ++i) {
            if (errorOfCreation() != "tova:scene/NoSceneWhenDisplayOff")
                std::_Exit(1);
        }
        std::_Exit(0);
    };
    EXPECT_EXIT(create(), testing::ExitedWithCode(0), "");
}

struct RenderCase : NamedRow {
    int margin;
    Rect area;
    double scale;
    Vetra::Size<int> size; ///< 0 where the image is to be null
};

class SceneRenderTest : public SceneTest, public testing::WithParamInterface<RenderCase> {};

TEST_P(SceneRenderTest, SizesTheImage)
{
    const RenderCase& row = GetParam();
    m_scene->addNode(filled({0, 0, 10, 5}));
    const auto image = m_scene->render(row.margin, row.area, row.scale);
    EXPECT_EQ(image->size(), row.size);
}

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

INSTANTIATE_TEST_SUITE_P(
    Forms, SceneRenderTest,
    testing::Values(RenderCase{"EmptyAreaIsTheBounds", 20, {}, 1, {50, 45}},
                    RenderCase{"NaNOriginIsTheBounds", 0, {kNaN, 0, 9, 9}, 1, {10, 5}},
                    RenderCase{"NaNWidthIsTheBounds", 0, {0, 0, kNaN, 9}, 1, {10, 5}},
                    RenderCase{"NegativeHeightIsTheBounds", 0, {0, 0, 9, -9}, 1, {10, 5}},
                    RenderCase{"MarginIsInPixels", 3, {0, 0, 10, 10}, 2, {26, 26}},
                    RenderCase{"SmallScaleRoundsUp", 0, {0, 0, 10, 10}, 0.25, {3, 3}},
                    RenderCase{"AtTheLimit", 0, {0, 0, 32767, 1}, 1, {32767, 1}},
                    RenderCase{"BeyondTheLimit", 0, {0, 0, 32768, 1}, 1, {0, 0}},
                    RenderCase{"MarginBeyondTheLimit", 2000000000, {}, 1, {0, 0}},
                    RenderCase{"TooManyBytes", 0, {0, 0, 30000, 30000}, 1, {0, 0}},
                    RenderCase{"ZeroScale", 0, {}, 0, {0, 0}},
                    RenderCase{"NaNScale", 0, {}, kNaN, {0, 0}}),
    rowName);

TEST_F(SceneTest, AnEmptySceneGivesAWhiteSquare)
{
    const auto image = m_scene->render();
    ASSERT_EQ(image->size(), (Vetra::Size<int>{40, 40}));
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(image->pixel(i, i).packed(), 0xffffffffu);
}

TEST_F(SceneTest, MarginAndScaleKeepTheAreaInItsPlace)
{
    m_scene->addNode(filled({0, 0, 4, 4}, 0xffff0000));
    m_scene->addNode(filled({-1, 0, 1, 4}, 0xff00ff00)); // outside the area, inside the margin
    const auto image = m_scene->render(3, {0, 0, 4, 4}, 2);
    ASSERT_EQ(image->size(), (Vetra::Size<int>{14, 14}));
    EXPECT_EQ(image->pixel(2, 3).packed(), 0xff00ff00u);
    EXPECT_EQ(image->pixel(3, 3).packed(), 0xffff0000u);
    EXPECT_EQ(image->pixel(10, 10).packed(), 0xffff0000u);
    EXPECT_EQ(image->pixel(11, 10).packed(), 0xffffffffu);
    EXPECT_EQ(image->pixel(0, 3).packed(), 0xffffffffu);
}

TEST_F(SceneTest, AllDevicesShowTheSamePicture)
{
    m_scene->addNode(filled({2, 3, 10, 5}, 0xff0000ff));
    const Rect target{1, 1, 30, 20}, source{0, 0, 15, 10};
    const auto blank = [] {
        QImage image(32, 24, QImage::Format_RGB32);
        image.fill(Qt::white);
        return image;
    };
    QImage direct = blank(), painted = blank(), replayed = blank();
    m_scene->render(direct, target, source);
    EXPECT_EQ(direct.pixel(5, 7), 0xff0000ff);
    EXPECT_EQ(direct.pixel(4, 7), 0xffffffff);
    QPainter painter(&painted);
    painter.setPen(Qt::red);
    m_scene->render(painter, target, source);
    EXPECT_EQ(painter.pen().color(), QColor(Qt::red)) << "the painter's state is not restored";
    painter.end();
    QPicture picture;
    m_scene->render(picture, target, source);
    painter.begin(&replayed);
    painter.drawPicture(0, 0, picture);
    painter.end();
    EXPECT_EQ(painted, direct);
    EXPECT_EQ(replayed, direct);
}

TEST_F(SceneTest, PrintsAPageOfVectors)
{
    m_scene->addNode(filled({0, 0, 100, 50}));
    const QTemporaryDir directory;
    const QString path = directory.filePath(QStringLiteral("page.pdf"));
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(path);
    m_scene->render(printer, {}, {});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("%PDF"));
    EXPECT_EQ(bytes.count("/Type /Page\n"), 1);
    EXPECT_FALSE(bytes.contains("/Subtype /Image"));
}

TEST_F(SceneTest, RenumbersBeforeValuesRunOutOfWholeNumbers)
{
    RectNode low = filled({0, 0, 5, 5}), high = filled({0, 0, 5, 5});
    m_scene->addNode(low);
    m_scene->addNode(high);
    high.setZValue(9007199254740991.0); // 2^53 - 1
    low.toTop();
    EXPECT_GT(low.getZValue(), high.getZValue());
    EXPECT_LT(low.getZValue(), 10);
    high.setZValue(-9007199254740991.0);
    low.toBottom();
    EXPECT_LT(low.getZValue(), high.getZValue());
    EXPECT_EQ(m_scene->getAllNodes().back(), low);
}

} // namespace
