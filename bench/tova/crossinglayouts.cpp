#include "crossinglayouts.h"

#include <cmath>
#include <random>

namespace Tova2 {

namespace {

/// Connectors of four pieces between blocks of a grid, most of them near each other.
std::vector<Points> makeDiagram(std::size_t segmentCount)
{
    std::mt19937 random(1);
    const auto side = static_cast<int>(std::sqrt(static_cast<double>(segmentCount) / 4)) + 1;
    const auto within = [&](int end) { return static_cast<double>(random() % end); };
    std::vector<Points> paths;
    for (std::size_t i = 0; i < segmentCount / 4; ++i) {
        const double x = within(side) * 100 + within(80), y = within(side) * 60 + within(40);
        const double reach = i % 50 ? 3 : side;
        const double dx = std::round((within(200) - 100) * reach),
                     dy = std::round((within(200) - 100) * reach);
        const double turn = x + std::round(dx * within(100) / 100);
        paths.push_back(
            {{x, y}, {turn, y}, {turn, y + dy}, {x + dx, y + dy}, {x + dx, y + dy + 20}});
    }
    return paths;
}

/// Half of the pieces are rows over the whole width, so all are active at once; each of the others
/// crosses four of them.
std::vector<Points> makeComb(std::size_t segmentCount)
{
    std::vector<Points> paths;
    const std::size_t rows = segmentCount / 2;
    for (std::size_t i = 0; i < rows; ++i) {
        const double y = static_cast<double>(i) * 10;
        const double x = static_cast<double>(i * 7919 % rows) + 1;
        paths.push_back({{0, y}, {static_cast<double>(rows) + 10, y}});
        paths.push_back({{x, y - 15}, {x, y + 25}});
    }
    return paths;
}

} // namespace

std::vector<Points> makePaths(const benchmark::State& state)
{
    return state.range(0) == Comb ? makeComb(state.range(1)) : makeDiagram(state.range(1));
}

void crossingSizes(benchmark::internal::Benchmark* bench)
{
    for (const int layout : {Diagram, Comb}) {
        for (const int count : {10'000, 100'000, 1'000'000})
            bench->Args({layout, count});
    }
    bench->ArgNames({"comb", "segments"})->Unit(benchmark::kMillisecond);
}

} // namespace Tova2
