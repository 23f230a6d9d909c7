// Paths of a hundred thousand points and more: whatever they look like, a paint follows what is
// seen.
#include "peers.h"

#include "tova/nodes/curvedpathnode.h"
#include "tova/nodes/linearpathnode.h"
#include "tova/nodes/opencurvedpathnode.h"
#include "tova/nodes/openlinearpathnode.h"

#include <benchmark/benchmark.h>

#include <QImage>

#include <cmath>

using namespace Tova2;

namespace {

constexpr int kWidth = 1600, kHeight = 1200;

enum Look { Plain, Tall, Translucent, Wide, Round, Dashed, Stretched, Rounded, Crossed, Looks };
constexpr const char* kLooks[Looks] = {"plain",  "tall",      "translucent", "wide",   "round",
                                       "dashed", "stretched", "rounded",     "crossed"};

/// A meander of right angles, or a sawtooth.
std::vector<Vetra::GLPoint<double>> zigzag(int count, bool isLevel, double height = 40)
{
    std::vector<Vetra::GLPoint<double>> points;
    for (int i = 0; i < count; ++i)
        points.push_back(
            {isLevel ? (i / 2) * 4.0 : i * 2.0, (isLevel ? (i + 1) / 2 : i) % 2 * height});
    return points;
}

DrawStyle styleOf(Look look)
{
    Stroke stroke(Vetra::Color(0, 0, 0, look == Translucent ? 0.5 : 1.0), look == Wide ? 12 : 2,
                  look == Dashed ? StrokeStyle::DashLine : StrokeStyle::SolidLine,
                  look == Round ? StrokeCapStyle::RoundCap : StrokeCapStyle::FlatCap,
                  look == Round ? StrokeJoinStyle::RoundJoin : StrokeJoinStyle::MiterJoin, nullptr);
    DrawStyle style(stroke, Fill::NoFill());
    style.setIsAntiAliased(true);
    return style;
}

Vetra::Holder<Scene> makeLongPath(Look look, int count)
{
    auto scene = Scene::createScene();
    // A row of pixels meets all teeth of a tall one.
    OpenLinearPathNode node(
        zigzag(count, look >= Rounded, look < Wide && look > Plain ? count : 40));
    node.setDrawStyle(styleOf(look));
    if (look == Stretched)
        node.setTransform(Vetra::Transform(1, 0, 0, 5, 0, 0));
    if (look == Rounded)
        node.setCornerStyle(CornerStyle::Rounded);
    scene->addNode(node);
    if (look == Crossed) {
        OpenLinearPathNode other({{-10, 20}, {count * 2.0, 20}});
        other.setDrawStyle(styleOf(Plain));
        scene->addNode(other);
        scene->findPathIntersections();
    }
    return scene;
}

Vetra::GLRect<double> wholeOf(Scene& scene)
{
    const auto b = scene.getBounds();
    return {b.x, b.y + b.height / 2 - b.width * 3 / 8, b.width, b.width * 3 / 4};
}

void paint(benchmark::State& state, Scene& scene, const Vetra::GLRect<double>& from)
{
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state)
        scene.render(image, {0, 0, kWidth, kHeight}, from);
}

void BM_PaintWhole(benchmark::State& state)
{
    const auto look = static_cast<Look>(state.range(0));
    const auto scene = makeLongPath(look, static_cast<int>(state.range(1)));
    state.SetLabel(kLooks[look]);
    paint(state, *scene, wholeOf(*scene));
}
BENCHMARK(BM_PaintWhole)
    ->ArgNames({"look", "points"})
    ->ArgsProduct({benchmark::CreateDenseRange(0, Looks - 1, 1), {100000, 1000000}})
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

void BM_PaintPart(benchmark::State& state)
{
    const auto look = static_cast<Look>(state.range(0));
    const auto scene = makeLongPath(look, 1000000);
    state.SetLabel(kLooks[look]);
    const double width = static_cast<double>(state.range(1));
    scene->getBounds(); // once for all paints
    paint(state, *scene, {5000, -width / 3, width, width * 3 / 4});
}
BENCHMARK(BM_PaintPart)
    ->ArgNames({"look", "width"})
    ->ArgsProduct({benchmark::CreateDenseRange(0, Looks - 1, 1), {800, 20000}})
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

/// An edit anywhere, and a part of the path painted.
void BM_PaintAfterEdit(benchmark::State& state)
{
    const auto look = static_cast<Look>(state.range(0));
    const auto scene = makeLongPath(look, 1000000);
    state.SetLabel(kLooks[look]);
    auto path = scene->getTopLevelNodes().front().as<OpenLinearPathNode>();
    QImage image(800, 600, QImage::Format_ARGB32_Premultiplied);
    double y = 20;
    for (auto _ : state) {
        path.setPoint(500, {1000, y = 50 - y});
        scene->render(image, {0, 0, 800, 600}, {5000, -100, 800, 600});
    }
}
BENCHMARK(BM_PaintAfterEdit)
    ->ArgName("look")
    ->Arg(Plain)
    ->Arg(Rounded)
    ->Iterations(3)
    ->Unit(benchmark::kMillisecond);

/// A comb, filled, that leads back along its other side.
template <class Path, class Points>
void paintClosed(benchmark::State& state, const Points& points)
{
    auto scene = Scene::createScene();
    Path node(points);
    DrawStyle style = styleOf(Plain);
    style.setFill(Fill(Vetra::Color(0.8, 0.9, 1.0)));
    node.setDrawStyle(style);
    scene->addNode(node);
    paint(state, *scene, wholeOf(*scene));
}

void BM_PaintClosed(benchmark::State& state)
{
    const int count = static_cast<int>(state.range(0));
    paintClosed<LinearPathNode>(state, zigzag(count, false, count));
}
BENCHMARK(BM_PaintClosed)
    ->Arg(10000)
    ->Arg(100000)
    ->Arg(1000000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

std::vector<Vertex> waves(int count)
{
    std::vector<Vertex> vertices;
    for (const auto& p : zigzag(count, false))
        vertices.push_back(Vertex(p, {2, 0}, {-2, 0}));
    return vertices;
}

void BM_PaintClosedCurve(benchmark::State& state)
{
    paintClosed<CurvedPathNode>(state, waves(static_cast<int>(state.range(0))));
}
BENCHMARK(BM_PaintClosedCurve)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

void BM_PaintCurve(benchmark::State& state)
{
    auto scene = Scene::createScene();
    OpenCurvedPathNode node(waves(static_cast<int>(state.range(0))));
    node.setDrawStyle(styleOf(Plain));
    scene->addNode(node);
    paint(state, *scene, wholeOf(*scene));
}
BENCHMARK(BM_PaintCurve)->Arg(100000)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
