#include "nodes/cachebudget.h"

#include "support/pictures.h"
#include "tova/nodes/geometry/limits.h"
#include "tova/tova.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <cmath>

using namespace Tova2;

namespace {

const Vetra::Color kRed(1, 0, 0), kBlack(0, 0, 0);
constexpr Vetra::GLRect<double> kSheet{-30, -30, 100, 90};
constexpr Vetra::GLRect<double> kBox{0, 0, 40, 28};

class Mask final : public CustomNodePainter {
    Vetra::GLRect<double> getBoundingRect(double) const override { return kBox; }
    void paint(QPainter*, double, const Vetra::GLRect<double>&, const PaintOptions&) override {}
};

Node makeKind(const std::string& kind)
{
    if (kind == "rect")
        return RectNode(kBox);
    if (kind == "rounded")
        return RoundedRectNode(kBox, 7);
    if (kind == "ellipse")
        return EllipseNode(Ellipse(kBox));
    if (kind == "path")
        return LinearPathNode({{0, 0}, {40, 5}, {20, 28}});
    if (kind == "text")
        return TextNode("Shade");
    if (kind == "line")
        return LineNode({0, 0}, {40, 28});
    CustomNode node;
    node.setPainter(new Mask);
    return node;
}

DrawStyle style(const Vetra::Color& fill, const Effect& effect)
{
    DrawStyle result(Stroke(kBlack, 1, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                            StrokeJoinStyle::MiterJoin, nullptr),
                     Fill(fill));
    result.setIsAntiAliased(true);
    result.setEffect(effect);
    return result;
}

QImage picture(Scene& scene, double scale)
{
    QImage image(static_cast<int>(kSheet.width * scale), static_cast<int>(kSheet.height * scale),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    scene.render(image, {}, kSheet);
    return image;
}

QImage picture(Node node, const DrawStyle& drawStyle, double scale = 1)
{
    const auto scene = Scene::createScene();
    node.setDrawStyle(drawStyle);
    scene->addNode(node);
    return picture(*scene, scale);
}

/// Where little covers a pixel, its colour says little.
int differenceOnPaper(const QImage& a, const QImage& b)
{
    const auto onPaper = [](const QImage& image) {
        QImage result(image.size(), QImage::Format_RGB32);
        result.fill(Qt::white);
        QPainter(&result).drawImage(0, 0, image);
        return result;
    };
    return TestSupport::largestDifference(onPaper(a), onPaper(b));
}

Effect shadow(const Vetra::Color& color, int spread, int distance, bool maskOut)
{
    return Effect::createEffect(Effect::Shadow(color, spread, {distance, distance}, maskOut));
}

Effect everything(const Vetra::Color& color)
{
    Effect effect = shadow(color, 6, 5, false);
    effect.set(Effect::Glow(color, 5, false, 100));
    effect.set(Effect::Overlay(color));
    effect.set(Effect::Trace(Stroke(color, 3, StrokeStyle::DashLine, StrokeCapStyle::FlatCap,
                                    StrokeJoinStyle::MiterJoin, nullptr),
                             StrokeInsetType::Outer));
    effect.set(Effect::Squiggly(color));
    return effect;
}

class EffectKindTest : public testing::TestWithParam<const char*> {};

TEST_P(EffectKindTest, PaintsWithinItsBounds)
{
    for (const double degrees : {0.0, 30.0, 180.0}) {
        const auto scene = Scene::createScene();
        Node node = makeKind(GetParam());
        node.setDrawStyle(
            style(Vetra::Color(0, 0, 1, 0.5), everything(Vetra::Color(1, 0, 0, 0.7))));
        node.rotateDegreesAroundPoint(degrees, {20, 14});
        scene->addNode(node);
        const auto bounds = scene->getBounds();
        const QRect due =
            QRectF(bounds.x + 30, bounds.y + 30, bounds.width, bounds.height).toAlignedRect();
        const QImage image = picture(*scene, 1);
        int inked = 0, outside = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                inked += qAlpha(image.pixel(x, y)) > 0;
                outside += qAlpha(image.pixel(x, y)) > 0 && !due.contains(x, y);
            }
        }
        EXPECT_GT(inked, 500) << degrees;
        EXPECT_EQ(outside, 0) << degrees;
    }
}

TEST_P(EffectKindTest, InATransparentColourPaintsNothing)
{
    const auto plain = style(Vetra::Color(0, 0, 1, 0.5), Effect());
    const auto unseen = style(Vetra::Color(0, 0, 1, 0.5), everything(Vetra::Color(1, 0, 0, 0)));
    EXPECT_EQ(picture(makeKind(GetParam()), unseen), picture(makeKind(GetParam()), plain));
    Node node = makeKind(GetParam());
    const auto before = node.getBoundingRect();
    node.setEffect(everything(Vetra::Color(1, 0, 0, 0)));
    EXPECT_EQ(node.getBoundingRect(), before);
}

TEST_P(EffectKindTest, IsTheSameWhereDensePixelsReplaceZoom)
{
    const auto scene = Scene::createScene();
    Node node = makeKind(GetParam());
    node.setDrawStyle(style(Vetra::Color(0, 0, 1), everything(Vetra::Color(1, 0, 0, 0.7))));
    scene->addNode(node);
    QImage dense(150, 135, QImage::Format_ARGB32_Premultiplied);
    dense.setDevicePixelRatio(1.5);
    dense.fill(Qt::transparent);
    scene->render(dense, {}, kSheet);
    dense.setDevicePixelRatio(1);
    EXPECT_LE(differenceOnPaper(dense, picture(*scene, 1.5)), 3);
}

INSTANTIATE_TEST_SUITE_P(Nodes, EffectKindTest,
                         testing::Values("rect", "rounded", "ellipse", "path", "text", "line",
                                         "custom"),
                         [](const auto& kind) { return std::string(kind.param); });

struct MaskCase {
    const char* name;
    double scale;
    int spread;
};
void PrintTo(const MaskCase& c, std::ostream* out)
{
    *out << c.name;
}
class EffectMaskTest : public testing::TestWithParam<MaskCase> {};

TEST_P(EffectMaskTest, LeavesNothingUnderATranslucentNode)
{
    const auto [name, scale, spread] = GetParam();
    const Vetra::Color glass(0, 0.5, 1, 0.3);
    const QImage plain = picture(RoundedRectNode(kBox, 6), style(glass, Effect()), scale);
    const QImage masked =
        picture(RoundedRectNode(kBox, 6), style(glass, shadow(kRed, spread, 4, true)), scale);
    const QImage unmasked =
        picture(RoundedRectNode(kBox, 6), style(glass, shadow(kRed, spread, 4, false)), scale);
    const auto pixel = [&](const QImage& image, double x, double y) {
        return image.pixel(static_cast<int>((x + 30) * scale), static_cast<int>((y + 30) * scale));
    };
    EXPECT_EQ(pixel(masked, 20, 14), pixel(plain, 20, 14));
    EXPECT_EQ(pixel(masked, 37, 25), pixel(plain, 37, 25));
    EXPECT_NE(pixel(unmasked, 20, 14), pixel(plain, 20, 14));
    EXPECT_GT(qRed(pixel(masked, 42.5, 20)), 60);
}

INSTANTIATE_TEST_SUITE_P(Scales, EffectMaskTest,
                         testing::Values(MaskCase{"Unscaled", 1, 3}, MaskCase{"Hard", 1, 0},
                                         MaskCase{"Coarser", 6, 6}, MaskCase{"Reduced", 0.8, 3}));

class EffectPaperTest : public testing::TestWithParam<const char*> {};

TEST_P(EffectPaperTest, OverlaysStayLinesAreasAndLetters)
{
    const auto scene = Scene::createScene();
    Node node = makeKind(GetParam());
    node.setDrawStyle(style(kBlack, Effect::createEffect(Effect::Overlay({1, 0, 0, 0.5}))));
    scene->addNode(node);
    QBuffer pdf;
    pdf.open(QIODevice::WriteOnly);
    QPdfWriter writer(&pdf);
    QPainter painter(&writer);
    scene->render(painter, {0, 0, 400, 400}, kSheet);
    painter.end();
    EXPECT_FALSE(pdf.data().contains("/Subtype /Image"));
}
INSTANTIATE_TEST_SUITE_P(Nodes, EffectPaperTest,
                         testing::Values("rect", "ellipse", "path", "text", "line"),
                         [](const auto& kind) { return std::string(kind.param); });

class TracePlaceTest : public testing::TestWithParam<StrokeInsetType> {};

TEST_P(TracePlaceTest, IsTheSameForAFreeShapeAsForABox)
{
    const Stroke line(kRed, 3, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                      StrokeJoinStyle::MiterJoin, nullptr);
    DrawStyle traced =
        style(Vetra::Color(0, 0, 1), Effect::createEffect(Effect::Trace(line, GetParam())));
    traced.setStroke(Stroke(kBlack, 4, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                            StrokeJoinStyle::MiterJoin, nullptr));
    const QImage box = picture(RectNode(kBox), traced);
    EXPECT_LE(differenceOnPaper(
                  picture(LinearPathNode({{0, 0}, {40, 0}, {40, 28}, {0, 28}}), traced), box),
              3);
}
INSTANTIATE_TEST_SUITE_P(Insets, TracePlaceTest,
                         testing::Values(StrokeInsetType::Inner, StrokeInsetType::Center,
                                         StrokeInsetType::Outer));

TEST(CoarseEffectsTest, TracesAndGlowsAreStillSeenWhenShadowsAreNot)
{
    const auto pictureOf = [](const Effect& effect) {
        return picture(RectNode(kBox), style(kBlack, effect), 0.4);
    };
    const QImage plain = pictureOf({});
    const Stroke line(kRed, 3, StrokeStyle::SolidLine, StrokeCapStyle::FlatCap,
                      StrokeJoinStyle::MiterJoin, nullptr);
    EXPECT_NE(pictureOf(Effect::createEffect(Effect::Trace(line, StrokeInsetType::Outer))), plain);
    EXPECT_NE(pictureOf(Effect::createEffect(Effect::Glow(kRed, 6, true, 1))), plain);
    EXPECT_EQ(pictureOf(shadow(kRed, 3, 2, true)), plain);
}

// The one is computed, and the other, of the same figure, drawn and softened.
TEST(EffectSharingTest, BoxesEqualOtherShapes)
{
    for (const double scale : {1.0, 2.0, 3.7}) {
        const Effect soft = shadow(Vetra::Color(0, 0, 0, 0.8), 4, 3, false);
        DrawStyle boxStyle = style(Vetra::Color(1, 1, 1), soft);
        boxStyle.setStroke(Stroke::NoStroke());
        const QImage pieces = picture(RoundedRectNode(kBox, 6), boxStyle, scale);
        const QImage whole = picture(FancyRoundedRectNode(kBox, 6, 6, 6, 6), boxStyle, scale);
        EXPECT_LE(differenceOnPaper(pieces, whole), 2) << scale;
    }
}

TEST(EffectSharingTest, NoZoomOverNodesOfAnySizeTakesMoreThanTheBudget)
{
    const auto scene = Scene::createScene();
    for (double size = 1; size <= 1e6; size *= 10) {
        EllipseNode node{Ellipse(Vetra::GLRect<double>{0, 0, size, size * 0.7})};
        node.setDrawStyle(style(Vetra::Color(0, 0, 1, 0.4), everything(kRed)));
        node.setCacheType(CacheType::ItemCoordinateCache);
        scene->addNode(node);
    }
    for (double scale = 0.009; scale <= 12.5; scale *= 4.25) {
        QImage image(300, 200, QImage::Format_RGB32);
        scene->render(image, {}, {-10, -10, 300 / scale, 200 / scale});
        EXPECT_LE(CacheBudget::bytes(), Limits::allCachesBytes) << scale;
    }
}

TEST(EffectSharingTest, LargeCornersAreMadeAsFarAsTheyAreSeen)
{
    for (const int spread : {0, 3}) {
        const auto scene = Scene::createScene();
        RoundedRectNode card({0, 0, 400, 280}, 100);
        card.setDrawStyle(style(Vetra::Color(1, 1, 1), shadow(kRed, spread, 2, false)));
        scene->addNode(card);
        const std::size_t before = CacheBudget::bytes();
        QImage image(300, 200, QImage::Format_RGB32);
        scene->render(image, {}, {27, 27, 300 / 5.0, 200 / 5.0});
        scene->render(image, {}, {27, 27, 300 / 64.0, 200 / 64.0});
        EXPECT_LT(CacheBudget::bytes(), before + (1 << 20)) << spread;
    }
}

TEST(EffectLimitsTest, HoldAgainWhenFieldsWereSetDirectly)
{
    Effect::Shadow wild(kRed, 3, {2, 2}, true);
    wild.spread = 1 << 30;
    wild.distance = {1 << 30, -(1 << 30)};
    Effect::Glow glow(kRed, 3, true, 1);
    glow.gain = std::nan("");
    Effect effect = Effect::createEffect(wild);
    effect.set(glow);
    RectNode node(kBox);
    node.setEffect(effect);
    const auto bounds = node.getBoundingRect();
    EXPECT_LE(bounds.width, 40 + 1 + 2 * (100 + 30));
    EXPECT_LE(bounds.height, 28 + 1 + 2 * (100 + 30));
}

} // namespace
