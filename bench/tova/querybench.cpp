#include "peers.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QPainterPath>

using namespace Tova2;

namespace {

/// Points over the whole grid, in an order that no cache foresees.
std::vector<Vetra::GLPoint<double>> probes(int count)
{
    const int columns = gridColumns(count), rows = count / columns;
    std::vector<Vetra::GLPoint<double>> points;
    for (int i = 0; i < 101; ++i)
        points.push_back(
            {(i * 37 % 101) / 101.0 * columns * kCell, (i * 61 % 101) / 101.0 * rows * kCell});
    return points;
}

void BM_NodeAt(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    auto scene = makeGrid(count);
    const auto points = probes(count);
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(scene->getNodeAt(points[i++ % points.size()]));
    state.SetComplexityN(count);
}
BENCHMARK(BM_NodeAt)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMicrosecond);

void BM_BareItemAt(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    auto scene = makeBareGrid(count);
    QCoreApplication::processEvents();
    const auto points = probes(count);
    std::size_t i = 0;
    for (auto _ : state) {
        const auto& p = points[i++ % points.size()];
        benchmark::DoNotOptimize(scene->itemAt(QPointF(p.x, p.y), QTransform()));
    }
}
BENCHMARK(BM_BareItemAt)->RangeMultiplier(10)->Range(1000, 100000)->Unit(benchmark::kMicrosecond);

void BM_NodesInRect(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    auto scene = makeGrid(count);
    const auto points = probes(count);
    std::size_t i = 0;
    for (auto _ : state) {
        const auto& p = points[i++ % points.size()];
        benchmark::DoNotOptimize(scene->getNodesIntersectingRect({p.x, p.y, 100, 100}));
    }
}
BENCHMARK(BM_NodesInRect)->Arg(100000)->Unit(benchmark::kMicrosecond);

void BM_BareItemsInRect(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    auto scene = makeBareGrid(count);
    QCoreApplication::processEvents();
    const auto points = probes(count);
    std::size_t i = 0;
    for (auto _ : state) {
        const auto& p = points[i++ % points.size()];
        benchmark::DoNotOptimize(scene->items(QRectF(p.x, p.y, 100, 100)));
    }
}
BENCHMARK(BM_BareItemsInRect)->Arg(100000)->Unit(benchmark::kMicrosecond);

// A query after each edit pays for the repair of what the edit has made stale.
void BM_MoveThenNodeAt(benchmark::State& state)
{
    auto scene = makeGrid(100000);
    Node node = scene->getNodeAt({5, 5});
    double x = 0;
    for (auto _ : state) {
        node.setPosition({x = 1 - x, 0});
        benchmark::DoNotOptimize(scene->getNodeAt({500, 500}));
    }
}
BENCHMARK(BM_MoveThenNodeAt)->Unit(benchmark::kMicrosecond);

// What a caller asks of one connector that was asked before.
void BM_ConnectorContains(benchmark::State& state)
{
    auto scene = makeDiagram(1);
    Node connector = scene->getAllNodes().front();
    double x = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(connector.contains({x = 7 - x, 6}));
}
BENCHMARK(BM_ConnectorContains);

void BM_ConnectorBounds(benchmark::State& state)
{
    auto scene = makeDiagram(1);
    Node connector = scene->getAllNodes().front();
    for (auto _ : state)
        benchmark::DoNotOptimize(connector.getBoundingRect());
}
BENCHMARK(BM_ConnectorBounds);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
