#include "peers.h"

#include "nodes/cachebudget.h"

#include <benchmark/benchmark.h>

#include <QGraphicsDropShadowEffect>
#include <QGraphicsRectItem>
#include <QImage>
#include <QPainter>
#include <QPen>

#include <cmath>

using namespace Tova2;

namespace {

constexpr int kCount = 300, kColumns = 20;
constexpr int kWidth = 1800, kHeight = 1100;
constexpr double kBlockWidth = 60, kBlockHeight = 40, kColumn = 88.3, kRow = 70.7;

QPointF placeOf(int index)
{
    return {20 + index % kColumns * kColumn, 20 + index / kColumns * kRow};
}

DrawStyle blockStyle(bool hasShadow)
{
    DrawStyle style(Stroke(Vetra::Color(0.1, 0.1, 0.3), 1.5, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill(Vetra::Color(0.8, 0.9, 1)));
    style.setIsAntiAliased(true);
    if (hasShadow)
        style.setEffect(Effect::createEffect(Effect::Shadow()));
    return style;
}

Vetra::Holder<Scene> makeBlocks(bool areRound, bool haveShadows)
{
    auto scene = Scene::createScene();
    const Vetra::GLRect<double> rect{0, 0, kBlockWidth, kBlockHeight};
    for (int i = 0; i < kCount; ++i) {
        Node node = areRound ? Node(RoundedRectNode(rect, 6)) : Node(RectNode(rect));
        node.setDrawStyle(blockStyle(haveShadows));
        node.setPosition({placeOf(i).x(), placeOf(i).y()});
        scene->addNode(node);
    }
    return scene;
}

void renderAt(Scene& scene, QImage& image, double scale)
{
    image.fill(Qt::white);
    scene.render(image, {0, 0, kWidth, kHeight}, {0, 0, kWidth / scale, kHeight / scale});
}

void render(benchmark::State& state, bool haveShadows)
{
    const auto scene = makeBlocks(state.range(0) != 0, haveShadows);
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        renderAt(*scene, image, 1);
}

void BM_PlainBlocks(benchmark::State& state)
{
    render(state, false);
}

void BM_ShadowedBlocks(benchmark::State& state)
{
    render(state, true);
}

// Another scale at each paint, for which nothing is kept.
void BM_ShadowedBlocksWhileZooming(benchmark::State& state)
{
    const auto scene = makeBlocks(state.range(0) != 0, true);
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    double scale = 1;
    for (auto _ : state)
        renderAt(*scene, image, scale *= 1.0001);
}

void BM_BareBlocksWithShadowEffect(benchmark::State& state)
{
    QGraphicsScene scene;
    scene.setItemIndexMethod(QGraphicsScene::NoIndex);
    for (int i = 0; i < kCount; ++i) {
        auto* const item = scene.addRect(0, 0, kBlockWidth, kBlockHeight,
                                         QPen(QColor::fromRgbF(0.1, 0.1, 0.3), 1.5),
                                         QColor::fromRgbF(0.8, 0.9, 1));
        item->setPos(placeOf(i));
        auto* const effect = new QGraphicsDropShadowEffect;
        effect->setBlurRadius(3);
        effect->setOffset(2, 2);
        item->setGraphicsEffect(effect);
    }
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        scene.render(&painter, image.rect(), image.rect());
    }
}

// Nodes from 1 to 1,000,000 units of every look, cached ones among them.
Vetra::Holder<Scene> makeSizes()
{
    auto scene = Scene::createScene();
    for (int step = 0; step <= 48; step += 3) {
        const double size = std::pow(10, step / 8.0);
        const Vetra::GLRect<double> rect{0, 0, size, size * 0.7};
        Node node =
            step % 2 ? Node(EllipseNode(Ellipse(rect))) : Node(RoundedRectNode(rect, size / 9));
        DrawStyle style = blockStyle(true);
        style.setFill(Fill(Vetra::Color(0.5, 0.5, 1, step % 3 ? 1 : 0.4)));
        Effect effect = style.effect();
        effect.set(Effect::Glow(Vetra::Color(1, 0.5, 0), 20, true, 3));
        style.setEffect(effect);
        node.setDrawStyle(style);
        node.setPosition({step * 3.7, step * 2.3});
        node.setCacheType(static_cast<CacheType>(step % 3));
        scene->addNode(node);
    }
    return scene;
}

void BM_CachesWhileZooming(benchmark::State& state)
{
    const auto scene = makeSizes();
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    std::size_t most = 0;
    for (auto _ : state) {
        for (double scale = 0.009; scale < 12.5; scale *= 3) {
            renderAt(*scene, image, scale);
            most = std::max(most, CacheBudget::bytes());
        }
    }
    state.counters["MB"] = static_cast<double>(most) / (1 << 20);
}

BENCHMARK(BM_PlainBlocks)->ArgName("round")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ShadowedBlocks)->ArgName("round")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_ShadowedBlocksWhileZooming)
    ->ArgName("round")
    ->Arg(0)
    ->Arg(1)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_BareBlocksWithShadowEffect)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_CachesWhileZooming)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
