#include "peers.h"

#include "tova/nodes/lineendings.h"
#include "tova/nodes/openlinearpathnode.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QCoreApplication>
#include <QGraphicsPathItem>
#include <QImage>
#include <QPainter>
#include <QPen>

#include <cmath>

using namespace Tova2;

namespace {

constexpr int kWidth = 1600, kHeight = 1200;
constexpr double kLine = 1.5;

std::vector<Vetra::GLPoint<double>> connector(int index)
{
    const double x = index % 100 * 15.0 + 10, y = index / 100 * 11.0 + 10;
    return {{x, y}, {x + 12, y}, {x + 12, y + 25}, {x + 30, y + 25}, {x + 30, y + 55}};
}

Vetra::Holder<Scene> makeConnectors(int count, bool isDecorated)
{
    auto scene = Scene::createScene();
    DrawStyle style(Stroke(Vetra::Color(0.1, 0.1, 0.3), kLine, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill::NoFill());
    style.setIsAntiAliased(true);
    for (int i = 0; i < count; ++i) {
        OpenLinearPathNode node(connector(i));
        node.setDrawStyle(style);
        if (isDecorated)
            node.setEndDecoration(LineEndings::createFilledArrow(style.stroke()));
        scene->addNode(node);
    }
    return scene;
}

std::unique_ptr<QGraphicsScene> makeBareConnectors(int count)
{
    auto scene = std::make_unique<QGraphicsScene>();
    scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    for (int i = 0; i < count; ++i) {
        const auto points = connector(i);
        QPainterPath path(QPointF(points[0].x, points[0].y));
        for (std::size_t p = 1; p < points.size(); ++p)
            path.lineTo(points[p].x, points[p].y);
        auto* const item = new QGraphicsPathItem(path);
        item->setPen(QPen(QColor::fromRgbF(0.1, 0.1, 0.3), kLine, Qt::SolidLine, Qt::FlatCap,
                          Qt::MiterJoin));
        scene->addItem(item);
    }
    return scene;
}

std::size_t heapBytes()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Bytes a path of five points as a counter, known as a query leaves it; the time means nothing.
template <class Make>
void measureHeap(benchmark::State& state, Make make)
{
    constexpr int kCount = 100000;
    for (auto _ : state) {
        const std::size_t before = heapBytes();
        auto scene = make(kCount);
        state.counters["bytes_per_path"] = static_cast<double>(heapBytes() - before) / kCount;
    }
}

void BM_HeapOfPath(benchmark::State& state)
{
    measureHeap(state, [](int count) {
        auto scene = makeConnectors(count, false);
        benchmark::DoNotOptimize(scene->getBounds());
        return scene;
    });
}
BENCHMARK(BM_HeapOfPath)->Iterations(1);

void BM_HeapOfBarePath(benchmark::State& state)
{
    measureHeap(state, makeBareConnectors);
}
BENCHMARK(BM_HeapOfBarePath)->Iterations(1);

void BM_PaintPaths(benchmark::State& state)
{
    auto scene = makeConnectors(10000, state.range(0));
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        image.fill(Qt::white);
        scene->render(image, {0, 0, kWidth, kHeight}, {0, 0, kWidth, kHeight});
    }
}
BENCHMARK(BM_PaintPaths)->ArgName("decorated")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void BM_PaintBarePaths(benchmark::State& state)
{
    auto scene = makeBareConnectors(10000);
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    QCoreApplication::processEvents();
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        scene->render(&painter, QRectF(0, 0, kWidth, kHeight), QRectF(0, 0, kWidth, kHeight));
    }
}
BENCHMARK(BM_PaintBarePaths)->Unit(benchmark::kMillisecond);

/// One path: a sawtooth that leaves most of it outside the view.
Vetra::Holder<Scene> makeLongPath(int count)
{
    std::vector<Vetra::GLPoint<double>> points;
    for (int i = 0; i < count; ++i)
        points.push_back({i * 2.0, i % 2 * 40.0});
    auto scene = Scene::createScene();
    OpenLinearPathNode node(points);
    DrawStyle style = node.getDrawStyle();
    style.setIsAntiAliased(true);
    style.setStroke(Stroke(Vetra::Color(0, 0, 0), 2, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr));
    node.setDrawStyle(style);
    scene->addNode(node);
    return scene;
}

// Linear in the points for the look at each chunk, with a small factor.
void BM_PaintPartOfLongPath(benchmark::State& state)
{
    auto scene = makeLongPath(static_cast<int>(state.range(0)));
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        scene->render(image, {0, 0, kWidth, kHeight}, {5000, -600, kWidth, kHeight});
}
BENCHMARK(BM_PaintPartOfLongPath)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void BM_PaintAllOfLongPath(benchmark::State& state)
{
    auto scene = makeLongPath(static_cast<int>(state.range(0)));
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    const auto b = scene->getBounds();
    for (auto _ : state)
        scene->render(image, {0, 0, kWidth, kHeight},
                      {b.x, -b.width * 3 / 8, b.width, b.width * 3 / 4});
}
BENCHMARK(BM_PaintAllOfLongPath)->Arg(1000000)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_HitLongPath(benchmark::State& state)
{
    auto scene = makeLongPath(static_cast<int>(state.range(0)));
    double x = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(
            scene->getNodesAtScenePos({x = std::fmod(x + 977.3, state.range(0) * 2.0), 20}));
}
BENCHMARK(BM_HitLongPath)->Arg(10000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

void BM_BuildLongPath(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(makeLongPath(1000000)->getBounds());
}
BENCHMARK(BM_BuildLongPath)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
