#include "peers.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QImage>
#include <QPainter>

using namespace Tova2;

namespace {

constexpr int kWidth = 1600, kHeight = 1200;

enum View { Fit, OneToOne };

QRectF sourceFor(View view, const QRectF& bounds)
{
    return view == Fit ? bounds : QRectF(bounds.topLeft(), QSizeF(kWidth, kHeight));
}

void render(benchmark::State& state, Vetra::Holder<Scene> scene)
{
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    const auto b = scene->getBounds();
    const QRectF source =
        sourceFor(static_cast<View>(state.range(1)), QRectF(b.x, b.y, b.width, b.height));
    for (auto _ : state) {
        image.fill(Qt::white);
        scene->render(image, {0, 0, kWidth, kHeight},
                      {source.x(), source.y(), source.width(), source.height()});
    }
}

void renderBare(benchmark::State& state, const std::unique_ptr<QGraphicsScene>& scene)
{
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    const QRectF source = sourceFor(static_cast<View>(state.range(1)), scene->itemsBoundingRect());
    QCoreApplication::processEvents();
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        scene->render(&painter, QRectF(0, 0, kWidth, kHeight), source, Qt::IgnoreAspectRatio);
    }
}

void BM_RenderBlocks(benchmark::State& state)
{
    render(state, makeGrid(static_cast<int>(state.range(0))));
}

void BM_RenderBareBlocks(benchmark::State& state)
{
    renderBare(state, makeBareGrid(static_cast<int>(state.range(0))));
}

// Half blocks, half connectors.
void BM_RenderDiagram(benchmark::State& state)
{
    render(state, makeDiagram(static_cast<int>(state.range(0)) / 2));
}

void BM_RenderBareDiagram(benchmark::State& state)
{
    renderBare(state, makeBareDiagram(static_cast<int>(state.range(0)) / 2));
}

void sizes(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"nodes", "view"})->Unit(benchmark::kMillisecond);
    for (const int count : {10000, 100000}) {
        for (const View view : {Fit, OneToOne})
            bench->Args({count, view});
    }
}

BENCHMARK(BM_RenderBlocks)->Apply(sizes);
BENCHMARK(BM_RenderBareBlocks)->Apply(sizes);
BENCHMARK(BM_RenderDiagram)->Apply(sizes);
BENCHMARK(BM_RenderBareDiagram)->Apply(sizes);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
