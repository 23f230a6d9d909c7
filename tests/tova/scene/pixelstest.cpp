#include "scene/repaintsink.h"
#include "scene/sceneprivate.h"

#include "support/pictures.h"
#include "support/rows.h"
#include "tova/tova.h"

#include <gmock/gmock.h>

#include <QCoreApplication>
#include <QImage>
#include <QPainter>

using namespace Tova2;
using TestSupport::largestDifference;

namespace {

constexpr Vetra::GLRect<double> kSource{0, 0, 60, 40};

DrawStyle smoothStyle(double width)
{
    DrawStyle style(Stroke(Vetra::Color(0.2, 0, 0), width, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill(Vetra::Color(0.9, 0.6, 0.1, 0.7)));
    style.setIsAntiAliased(true);
    return style;
}

/// Nodes of several kinds at fractions of a pixel, one turned and one faint.
Vetra::Holder<Scene> makeScene(CacheType cache)
{
    auto scene = Scene::createScene();
    const auto add = [&](Node node, double x, double y, double width) {
        node.setDrawStyle(smoothStyle(width));
        node.setPosition({x, y});
        node.setCacheType(cache);
        scene->addNode(node);
        return node;
    };
    add(RectNode({0, 0, 15, 10}), 2.3, 3.7, 1.5);
    add(EllipseNode(Ellipse({0, 0, 15, 10})), 22.25, 4.5, 3).setOpacity(0.5);
    add(RoundedRectNode({0, 0, 15, 10}, 3), 40.1, 5.2, 0).rotateDegrees(25);
    add(LineNode({0, 0}, {30, 11}), 5.5, 22.2, 2);
    return scene;
}

QImage render(Scene& scene, double scale, double pixelRatio = 1)
{
    QImage image(static_cast<int>(kSource.width * scale * pixelRatio),
                 static_cast<int>(kSource.height * scale * pixelRatio),
                 QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(pixelRatio);
    image.fill(Qt::white);
    scene.render(image, {}, kSource);
    return image;
}

struct CacheCase : NamedRow {
    CacheType type;
    double scale;
};
class NodeCacheTest : public testing::TestWithParam<CacheCase> {};

// Composing translucent pixels a second time rounds once more.
constexpr int kRounding = 3;

TEST_P(NodeCacheTest, LooksLikeNoCacheOnFirstAndLaterPaints)
{
    const auto plain = makeScene(CacheType::NoCache), cached = makeScene(GetParam().type);
    const QImage expected = render(*plain, GetParam().scale);
    EXPECT_LE(largestDifference(render(*cached, GetParam().scale), expected), kRounding);
    EXPECT_LE(largestDifference(render(*cached, GetParam().scale), expected), kRounding);
}

TEST_P(NodeCacheTest, FollowsEachKindOfChange)
{
    const auto plain = makeScene(CacheType::NoCache), cached = makeScene(GetParam().type);
    render(*cached, GetParam().scale);
    for (const auto& scene : {plain, cached}) {
        const auto nodes = scene->getAllNodes();
        nodes[0].as<LineNode>().setEnd({20, 2});
        Node(nodes[1]).setPosition({41.6, 6.9});
        Node(nodes[2]).setFillColor(Vetra::Color(0, 0.5, 0));
        Node(nodes[3]).rotateDegrees(10);
    }
    EXPECT_LE(
        largestDifference(render(*cached, GetParam().scale), render(*plain, GetParam().scale)),
        kRounding);
}

INSTANTIATE_TEST_SUITE_P(
    Scene, NodeCacheTest,
    testing::Values(CacheCase{"ItemUnscaled", CacheType::ItemCoordinateCache, 1},
                    CacheCase{"ItemEnlarged", CacheType::ItemCoordinateCache, 3.3},
                    CacheCase{"DeviceReduced", CacheType::DeviceCoordinateCache, 0.45},
                    CacheCase{"DeviceEnlarged", CacheType::DeviceCoordinateCache, 2}));

struct RatioCase : NamedRow {
    double ratio;
    CacheType cache;
};
class PixelRatioTest : public testing::TestWithParam<RatioCase> {};

// Fails as well where anything is drawn small and blown up.
TEST_P(PixelRatioTest, EqualsAScaleOfTheSameFactor)
{
    const auto scene = makeScene(GetParam().cache);
    // The cosmetic outline is a pixel wide on either, so it does not scale.
    Node(scene->getAllNodes()[1]).setStroke(smoothStyle(1).stroke());
    EXPECT_LE(
        largestDifference(render(*scene, 1, GetParam().ratio), render(*scene, GetParam().ratio)),
        kRounding);
}

INSTANTIATE_TEST_SUITE_P(
    Scene, PixelRatioTest,
    testing::Values(RatioCase{"Fractional", 1.25, CacheType::NoCache},
                    RatioCase{"Double", 2, CacheType::NoCache},
                    RatioCase{"DoubleFromCaches", 2, CacheType::DeviceCoordinateCache},
                    RatioCase{"FractionalFromCaches", 1.25, CacheType::ItemCoordinateCache},
                    RatioCase{"HalfFromCaches", 1.5, CacheType::DeviceCoordinateCache},
                    RatioCase{"TripleFromCaches", 3, CacheType::ItemCoordinateCache}));

// As when the window is dragged from screen to screen.
TEST(CacheRatioTest, PicturesOfOneScreenAreNotShownOnAnother)
{
    const auto cached = makeScene(CacheType::ItemCoordinateCache);
    const auto plain = makeScene(CacheType::NoCache);
    for (const double ratio : {1.0, 2.0, 1.5, 1.0})
        EXPECT_LE(largestDifference(render(*cached, 1, ratio), render(*plain, 1, ratio)), kRounding)
            << ratio;
}

struct AlignCase : NamedRow {
    double width, x, scale, ratio;
};
class PixelAlignTest : public testing::TestWithParam<AlignCase> {};

TEST_P(PixelAlignTest, LeavesNoHalfCoveredPixels)
{
    const auto scene = Scene::createScene();
    DrawStyle style = smoothStyle(GetParam().width);
    style.setStroke(Stroke(Vetra::Color(0, 0, 0), GetParam().width, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr));
    style.setFill(Fill());
    style.setIsPixelAligned(true);
    RectNode node({0, 0, 20.4, 13.7});
    node.setDrawStyle(style);
    node.setPosition({GetParam().x, 7.3});
    scene->addNode(node);
    const QImage image = render(*scene, GetParam().scale, GetParam().ratio);
    int inked = 0, half = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const int red = qRed(image.pixel(x, y));
            inked += red == 0;
            half += red != 0 && red != 255;
        }
    }
    EXPECT_GT(inked, 20);
    EXPECT_EQ(half, 0);
}

INSTANTIATE_TEST_SUITE_P(Scene, PixelAlignTest,
                         testing::Values(AlignCase{"OddWidth", 1, 5.4, 1, 1},
                                         AlignCase{"EvenWidth", 2, 5.4, 1, 1},
                                         AlignCase{"Cosmetic", 0, 5.4, 2.7, 1},
                                         AlignCase{"OddOnEnlargedView", 1, 5.5, 3, 1},
                                         AlignCase{"EvenOnDenseScreen", 1, 5.3, 1, 2},
                                         AlignCase{"OneAtFiveQuarters", 1, 5.4, 1, 1.25},
                                         AlignCase{"TwoBecomesOddAtFiveQuarters", 2, 5.4, 1, 1.25},
                                         AlignCase{"OneBecomesEvenAtThreeHalves", 1, 5.3, 1, 1.5},
                                         AlignCase{"TwoBecomesOddAtThreeHalves", 2, 5.3, 1, 1.5},
                                         AlignCase{"ThinWhenZoomedOut", 1, 5.4, 0.6, 1}));

class GrowingPainter : public CustomNodePainter {
public:
    double size = 10;

private:
    Vetra::GLRect<double> getBoundingRect(double) const override { return {0, 0, size, size}; }
    void paint(QPainter* painter, double, const Vetra::GLRect<double>& target,
               const PaintOptions&) override
    {
        painter->fillRect(QRectF(target.x, target.y, target.width, target.height), Qt::black);
    }
};

// A painter tells before its bounds change; whoever asks in between must not fix the old ones.
/// What the picture of a part may depend on nothing but the scene for.
struct PartCase : NamedRow {
    Node (*make)();
    StrokeStyle dashes;
    double width;
};
class PartTest : public testing::TestWithParam<PartCase> {};

constexpr double kEndless = 1e18;

Node makeWave()
{
    OpenCurvedPathNode wave;
    for (int i = 0; i < 6; ++i)
        wave.append({{4.0 + 10 * i, i % 2 ? 38.0 : 2.0}, {-14, 0}, {14, 0}});
    return wave;
}

Node makeEndlessShape()
{
    Vetra::Shape shape;
    shape.moveTo({-kEndless, 9});
    shape.lineTo({kEndless, 12});
    shape.lineTo({kEndless, 31});
    return ShapeNode(shape);
}

TEST_P(PartTest, HasThePixelsOfTheWhole)
{
    const auto scene = Scene::createScene();
    Node node = GetParam().make();
    DrawStyle style(Stroke(Vetra::Color(0, 0, 0.4), GetParam().width, GetParam().dashes,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill::NoFill());
    style.setIsAntiAliased(true);
    node.setDrawStyle(style);
    scene->addNode(node);
    const QImage whole = render(*scene, 1);
    for (const QRect& part : {QRect(0, 0, 30, 20), QRect(13, 7, 21, 9), QRect(29, 18, 31, 22)}) {
        QImage image(part.size(), whole.format());
        image.fill(Qt::white);
        scene->render(
            image, {},
            {double(part.x()), double(part.y()), double(part.width()), double(part.height())});
        EXPECT_EQ(largestDifference(image, whole.copy(part)), 0) << part.x() << ' ' << part.y();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Pixels, PartTest,
    testing::Values(
        PartCase{{"CurveThatLeavesAndComesBack"}, makeWave, StrokeStyle::SolidLine, 1.5},
        PartCase{{"DashedCurve"}, makeWave, StrokeStyle::DashDotLine, 1.5},
        PartCase{{"ThinDashes"},
                 [] {
                     return Node(EllipseNode(Ellipse({-20, -15, 75, 50})));
                 },
                 StrokeStyle::DashLine,
                 0.7},
        PartCase{{"EndlessDashedRect"},
                 [] {
                     return Node(RectNode({10, 10, kEndless, kEndless}));
                 },
                 StrokeStyle::DotLine,
                 2},
        PartCase{{"EndlessDashedEllipse"},
                 [] {
                     return Node(EllipseNode(Ellipse({10, -kEndless / 2, kEndless, kEndless})));
                 },
                 StrokeStyle::DashLine,
                 2},
        PartCase{{"EndlessDashedLine"},
                 [] {
                     return Node(LineNode({-kEndless, 20}, {kEndless, 20}));
                 },
                 StrokeStyle::DashLine,
                 2},
        PartCase{{"EndlessDashedShape"}, makeEndlessShape, StrokeStyle::DashLine, 2}),
    rowName);

TEST(AnnouncedBoundsTest, TakesEffectWithoutATurnOfTheEventLoop)
{
    const auto scene = Scene::createScene();
    CustomNode node;
    auto* const painter = new GrowingPainter;
    node.setPainter(painter);
    scene->addNode(node);
    ASSERT_EQ(scene->getBounds().width, 10);
    painter->boundsChanging();
    EXPECT_EQ(scene->getBounds().width, 10);
    painter->size = 30;
    EXPECT_EQ(scene->getBounds().width, 30);
    EXPECT_EQ(scene->getNodeAt({25, 25}), node);
}

class AreaRecorder final : public RepaintSink {
public:
    void repaintRequested(const DirtyArea& area) override
    {
        isAsked |= area.rect.isEmpty() || area.rect.width() >= 30;
    }
    bool isAsked = false;
};

TEST(AnnouncedBoundsTest, RepaintsTheNewAreaInTheNextTurn)
{
    const auto scene = Scene::createScene();
    CustomNode node;
    auto* const painter = new GrowingPainter;
    node.setPainter(painter);
    scene->addNode(node);
    AreaRecorder sink;
    scene->d_func()->addRepaintSink(&sink);
    painter->boundsChanging();
    painter->size = 30;
    sink.isAsked = false;
    QCoreApplication::processEvents();
    EXPECT_TRUE(sink.isAsked);
    scene->d_func()->removeRepaintSink(&sink);
}

} // namespace
