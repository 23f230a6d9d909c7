#include "peers.h"

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QCoreApplication>
#include <QGraphicsItem>

#include <vector>

using namespace Tova2;

namespace {

std::size_t heapBytes()
{
    const auto info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

/// Bytes a node as a counter; the time means nothing.
template <class Make>
void measureHeap(benchmark::State& state, Make make)
{
    const int count = static_cast<int>(state.range(0));
    double bytes = 0;
    for (auto _ : state) {
        const std::size_t before = heapBytes();
        auto scene = make(count);
        bytes = static_cast<double>(heapBytes() - before) / count;
        state.PauseTiming();
        scene.reset();
        state.ResumeTiming();
    }
    state.counters["bytes_per_node"] = bytes;
}

// Known as a query leaves it: with the scene's packed records.
void BM_HeapOfNode(benchmark::State& state)
{
    measureHeap(state, [](int count) {
        auto scene = makeGrid(count);
        benchmark::DoNotOptimize(scene->getBounds());
        return scene;
    });
}
BENCHMARK(BM_HeapOfNode)->Arg(100000)->Iterations(1);

void BM_HeapOfBareItem(benchmark::State& state)
{
    measureHeap(state, makeBareGrid);
}
BENCHMARK(BM_HeapOfBareItem)->Arg(100000)->Iterations(1);

void BM_BuildAndDestroyNodes(benchmark::State& state)
{
    for (auto _ : state) {
        auto scene = makeGrid(static_cast<int>(state.range(0)));
        if (state.range(1))
            QCoreApplication::processEvents();
        scene->destroy();
        scene.reset();
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_BuildAndDestroyNodes)
    ->ArgNames({"nodes", "turn"})
    ->Args({100000, 1})
    ->Args({100000, 0})
    ->Unit(benchmark::kMillisecond);

// Without a turn of the event loop before the end the toolkit needs seconds, hence the smaller
// count.
void BM_BuildAndDestroyBareItems(benchmark::State& state)
{
    for (auto _ : state) {
        auto scene = makeBareGrid(static_cast<int>(state.range(0)));
        if (state.range(1))
            QCoreApplication::processEvents();
        scene.reset();
    }
}
BENCHMARK(BM_BuildAndDestroyBareItems)
    ->ArgNames({"nodes", "turn"})
    ->Args({100000, 1})
    ->Args({20000, 0})
    ->Unit(benchmark::kMillisecond);

// One node moved and one turn of the event loop, which is where the toolkit pays for the change.
void BM_MoveNodeAndTurn(benchmark::State& state)
{
    auto scene = makeGrid(100000);
    QCoreApplication::processEvents();
    Node node = scene->getNodeAt({5, 5});
    double x = 0;
    for (auto _ : state) {
        node.setPosition({x = 1 - x, 0});
        QCoreApplication::processEvents();
    }
}
BENCHMARK(BM_MoveNodeAndTurn)->Unit(benchmark::kMicrosecond);

void BM_MoveBareItemAndTurn(benchmark::State& state)
{
    auto scene = makeBareGrid(100000);
    QCoreApplication::processEvents();
    QGraphicsItem* const item = scene->itemAt(QPointF(5, 5), QTransform());
    double x = 0;
    for (auto _ : state) {
        item->setPos(x = 1 - x, 0);
        QCoreApplication::processEvents();
    }
}
BENCHMARK(BM_MoveBareItemAndTurn)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
