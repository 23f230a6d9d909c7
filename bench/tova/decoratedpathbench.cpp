// What marks of crossings and line ends cost in the picture: ten thousand connectors with each
// against the same without, in one run.
#include "peers.h"

#include "tova/nodes/lineendings.h"
#include "tova/nodes/openlinearpathnode.h"

#include <benchmark/benchmark.h>

#include <QImage>

#include <array>

using namespace Tova2;

namespace {

constexpr int kWidth = 1600, kHeight = 1200, kCount = 10000;
constexpr std::array<const char*, 5> kDecorators{"none", "hop", "pin", "grad_pin", "light_pin"};

enum class Ends { None, Arrow };

enum Density { Sparse, Dense };

/// In a dense layout everything crosses everything; in a sparse one there is a mark or two on each.
std::vector<Vetra::GLPoint<double>> connector(int index, Density density)
{
    if (density == Dense) {
        const double x = index % 80 * 19.0 + 10, y = index / 80 * 9.0 + 10 + index % 80 % 3 * 3.0;
        return {{x, y}, {x + 24, y}, {x + 24, y + 31}, {x + 40, y + 31}, {x + 40, y + 49}};
    }
    const double x = index / 4 % 50 * 32.0, y = index / 200 * 24.0;
    switch (index % 4) {
    case 0: // crossed by the next two
        return {{x + 2, y + 12},
                {x + 26, y + 12},
                {x + 26, y + 20},
                {x + 29, y + 20},
                {x + 29, y + 22}};
    case 1:
        return {
            {x + 8, y + 1}, {x + 12, y + 1}, {x + 12, y + 23}, {x + 15, y + 23}, {x + 15, y + 25}};
    case 2:
        return {
            {x + 16, y + 2}, {x + 20, y + 2}, {x + 20, y + 22}, {x + 23, y + 22}, {x + 23, y + 25}};
    default:
        return {
            {x + 24, y + 1}, {x + 30, y + 1}, {x + 30, y + 8}, {x + 28, y + 8}, {x + 28, y + 10}};
    }
}

struct Connectors {
    Vetra::Holder<Scene> scene = Scene::createScene();
    std::vector<OpenLinearPathNode> nodes;
};

Connectors makeConnectors(const char* decorator, Ends ends, Density density)
{
    Connectors made;
    const auto& scene = made.scene;
    scene->usePathIntersectionsDecorator(decorator);
    DrawStyle style(Stroke(Vetra::Color(0.1, 0.1, 0.3), 1.5, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill::NoFill());
    style.setIsAntiAliased(true);
    for (int i = 0; i < kCount; ++i) {
        OpenLinearPathNode node(connector(i, density));
        node.setDrawStyle(style);
        if (ends == Ends::Arrow)
            node.setEndDecoration(LineEndings::createFilledArrow(style.stroke()));
        scene->addNode(node);
        made.nodes.push_back(node);
    }
    scene->findPathIntersections();
    return made;
}

double marksPerConnector(const Connectors& connectors)
{
    std::size_t marks = 0;
    for (const OpenLinearPathNode& node : connectors.nodes)
        marks += node.intersectionPoints().size();
    return static_cast<double>(marks) / kCount;
}

void BM_PaintConnectors(benchmark::State& state)
{
    const char* const decorator = kDecorators[static_cast<std::size_t>(state.range(0))];
    const auto connectors = makeConnectors(decorator, state.range(1) ? Ends::Arrow : Ends::None,
                                           static_cast<Density>(state.range(2)));
    const double zoom = static_cast<double>(state.range(3)) / 100;
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        image.fill(Qt::white);
        connectors.scene->render(image, {0, 0, kWidth, kHeight},
                                 {0, 0, kWidth / zoom, kHeight / zoom});
    }
    state.SetLabel(decorator);
    state.counters["marks"] = marksPerConnector(connectors);
}
BENCHMARK(BM_PaintConnectors)
    ->ArgNames({"decorator", "ends", "density", "zoom"})
    ->ArgsProduct({benchmark::CreateDenseRange(0, 4, 1), {0, 1}, {Sparse}, {100}})
    ->ArgsProduct({benchmark::CreateDenseRange(0, 4, 1), {0}, {Dense}, {100}})
    ->ArgsProduct({benchmark::CreateDenseRange(0, 4, 1), {0}, {Sparse}, {25, 300}})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
