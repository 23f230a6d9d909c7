#include "nodes/pixelarea.h"

#include "host/diagnosticscounter.h"
#include "tova/nodes/ellipsenode.h"
#include "tova/nodes/openlinearpathnode.h"
#include "tova/nodes/rectnode.h"
#include "tova/nodes/roundedrectnode.h"
#include "tova/nodes/shapenode.h"
#include "tova/nodes/textnode.h"
#include "tova/scene/scene.h"
#include "vetra/qt.h"
#include "vetra/shape.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

namespace {

using namespace Tova2;

QImage render(Scene& scene, double scale, const char* strategy)
{
    scene.setLODStrategyKey(strategy);
    return Vetra::toQt(*scene.render(4, {-40, -40, 640, 640}, scale));
}

/// The largest difference of a channel's mean over squares of `side` pixels.
int farthest(const QImage& a, const QImage& b, int side)
{
    const auto means = [side](const QImage& image) {
        return image.scaled(image.size() / side, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage p = means(a), q = means(b);
    int most = 0;
    for (int y = 0; y < p.height(); ++y) {
        for (int x = 0; x < p.width(); ++x) {
            const QRgb c = p.pixel(x, y), d = q.pixel(x, y);
            most = std::max({most, std::abs(qRed(c) - qRed(d)), std::abs(qGreen(c) - qGreen(d)),
                             std::abs(qBlue(c) - qBlue(d))});
        }
    }
    return most;
}

DrawStyle styleOf(int i)
{
    const StrokeStyle line = i % 4 ? StrokeStyle::SolidLine : StrokeStyle::DashLine;
    Fill fill = i % 5 ? Fill(Vetra::Color(0.9, 0.6, 0.1 * (i % 10), i % 3 ? 1 : 0.5)) : Fill();
    if (i % 7 == 0) {
        auto gradient = Vetra::Gradient::linear({0, 0}, {20, 0});
        gradient.setStops({{0, Vetra::Color(1, 1, 1)}, {1, Vetra::Color(0, 0.4, 0.8)}});
        fill = Fill(gradient);
    }
    DrawStyle style(Stroke(Vetra::Color(0.1, 0.1, 0.4), 1.5, line, StrokeCapStyle::FlatCap,
                           StrokeJoinStyle::MiterJoin, nullptr),
                    fill);
    style.setIsAntiAliased(true);
    return style;
}

Node makeNode(int i)
{
    switch (i % 5) {
    case 0:
        return RectNode({0, 0, 20, 14});
    case 1:
        return EllipseNode(Ellipse({0, 0, 18, 18}));
    case 2:
        return RoundedRectNode({0, 0, 22, 14}, 4);
    case 3:
        return OpenLinearPathNode({{0, 0}, {12, 0}, {12, 25}, {40, 34}});
    default: {
        Vetra::Shape triangle;
        triangle.moveTo({0, 0});
        triangle.lineTo({20, 8});
        triangle.lineTo({0, 16});
        triangle.closeSubpath();
        return ShapeNode(triangle);
    }
    }
}

Vetra::Holder<Scene> makeCrowd()
{
    auto scene = Scene::createScene();
    for (int i = 0; i < 400; ++i) {
        Node node = makeNode(i);
        node.setDrawStyle(styleOf(i / 5));
        node.setPosition({i % 20 * 27.3, i / 20 * 27.7}); // overlapping a little
        node.setOpacity(i % 11 ? 1 : 0.5);
        scene->addNode(node);
    }
    return scene;
}

class CoarsestQualityTest : public testing::TestWithParam<double> {};

TEST_P(CoarsestQualityTest, LooksLikeTheFullOneFromAfar)
{
    const auto scene = makeCrowd();
    const QImage coarse = render(*scene, GetParam(), "tova2::default");
    const QImage full = render(*scene, GetParam(), "tova2::fullquality");
    EXPECT_NE(coarse, full) << "nothing was simplified";
    EXPECT_LE(farthest(coarse, full, 8), 30);
}
INSTANTIATE_TEST_SUITE_P(Lod, CoarsestQualityTest, testing::Values(0.04, 0.1, 0.3, 0.5),
                         [](const auto& row) {
                             return "Percent" + std::to_string(static_cast<int>(row.param * 100));
                         });

TEST(LevelChangeTest, RebuildsNoGeometry)
{
    const auto scene = makeCrowd();
    scene->addNode(TextNode("laid out once"));
    auto& layouts = Host::DiagnosticsCounter::counter("Node:Text layouts made");
    const auto bounds = scene->getBounds();
    const auto made = layouts.value();
    const auto changes = scene->getSceneNodeChangeCounter();
    for (const double scale : {0.4, 0.6, 1.0, 0.1})
        scene->render(0, {}, scale);
    EXPECT_EQ(layouts.value(), made);
    EXPECT_EQ(scene->getSceneNodeChangeCounter(), changes);
    EXPECT_EQ(scene->getBounds(), bounds);
}

struct TextCase {
    const char* name;
    int smallest;
    double scale;
    bool hasLetters, hasInk;
};
class SmallTextTest : public testing::TestWithParam<TextCase> {};

TEST_P(SmallTextTest, IsHintedAtOrLeftOut)
{
    const auto scene = Scene::createScene();
    TextNode text("mmmmmmmm");
    Vetra::Font font;
    font.setSize(20);
    text.setFont(font);
    scene->addNode(text);
    scene->setMinRenderFontSize(GetParam().smallest);
    const QImage image = render(*scene, GetParam().scale, "tova2::default");
    int darkest = 255;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            darkest = std::min(darkest, qRed(image.pixel(x, y)));
    }
    EXPECT_EQ(darkest < 150, GetParam().hasLetters);
    EXPECT_EQ(darkest < 250, GetParam().hasInk);
}
INSTANTIATE_TEST_SUITE_P(Lod, SmallTextTest,
                         testing::Values(TextCase{"Legible", 5, 0.3, true, true},
                                         TextCase{"BelowTheMinimum", 5, 0.2, false, true},
                                         TextCase{"MinimumOfTheScene", 21, 1.0, false, true},
                                         TextCase{"MereHaze", 5, 0.09, false, false},
                                         TextCase{"NoMinimum", 0, 0.2, true, true}),
                         [](const auto& row) { return row.param.name; });

QImage clearImage(int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

TEST(PixelAreaTest, CoversWhatIsCovered)
{
    QImage image = clearImage(30);
    PixelArea layer(image, {-2, -2});
    layer.fill({0.25, 0.5, 2.5, 1}, 0xff0000ff);
    layer.fill({1.5, 10, 0.25, 0.25}, 0xff0000ff);
    EXPECT_NEAR(qAlpha(image.pixel(2, 2)), 255 * 0.75 * 0.5, 2);
    EXPECT_NEAR(qAlpha(image.pixel(3, 2)), 255 * 0.5, 2);
    EXPECT_NEAR(qAlpha(image.pixel(4, 3)), 255 * 0.75 * 0.5, 2);
    EXPECT_EQ(qAlpha(image.pixel(5, 2)), 0);
    EXPECT_NEAR(qAlpha(image.pixel(3, 12)), 255 / 16.0, 2);
    layer.fill({-1e300, -1e300, 1e308, 1e308}, 0xff00ff00);
    EXPECT_EQ(image.pixel(0, 0), 0xff00ff00);
    EXPECT_EQ(image.pixel(29, 29), 0xff00ff00);
}

class SlantedLineTest : public testing::TestWithParam<QLineF> {};

TEST_P(SlantedLineTest, HasAsMuchInkAsArea)
{
    QImage image = clearImage(60);
    PixelArea(image, {}).draw(GetParam(), 0.7, 0xffffffff);
    double ink = 0;
    for (int y = 0; y < 60; ++y) {
        for (int x = 0; x < 60; ++x)
            ink += qAlpha(image.pixel(x, y)) / 255.0;
    }
    EXPECT_NEAR(ink, GetParam().length() * 0.7, 0.6);
}
INSTANTIATE_TEST_SUITE_P(Lod, SlantedLineTest,
                         testing::Values(QLineF(5, 5, 50, 20), QLineF(50, 20, 5, 5),
                                         QLineF(10, 55, 22, 3), QLineF(7.3, 30, 41.9, 30)));

} // namespace
