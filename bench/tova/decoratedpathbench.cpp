// What marks of crossings and line ends cost in the picture, against the same connectors without
// them, in one run: ten thousand short ones, long ones of which a part is seen, and real layouts.
#include "peers.h"

#include "tova/nodes/lineendings.h"
#include "tova/nodes/openlinearpathnode.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QImage>

#include <algorithm>
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

OpenLinearPathNode addConnector(Scene& scene, const std::vector<Vetra::GLPoint<double>>& points)
{
    OpenLinearPathNode node(points);
    DrawStyle style(Stroke(Vetra::Color(0.1, 0.1, 0.3), 1.5, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill::NoFill());
    style.setIsAntiAliased(true);
    node.setDrawStyle(style);
    scene.addNode(node);
    return node;
}

Connectors makeConnectors(const char* decorator, Ends ends, Density density)
{
    Connectors made;
    const auto& scene = made.scene;
    scene->usePathIntersectionsDecorator(decorator);
    for (int i = 0; i < kCount; ++i) {
        OpenLinearPathNode node = addConnector(*scene, connector(i, density));
        if (ends == Ends::Arrow)
            node.setEndDecoration(LineEndings::createFilledArrow(node.getStroke()));
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

/// So many lines down, each of which crosses a thousand.
Vetra::Holder<Scene> makeLongLines(const char* decorator, int count)
{
    constexpr int kCrossed = 1000;
    constexpr double kApart = 20;
    auto scene = Scene::createScene();
    scene->usePathIntersectionsDecorator(decorator);
    for (int i = 0; i < count; ++i)
        addConnector(*scene, {{i * kApart + kApart, 0}, {i * kApart + kApart, kCrossed * kApart}});
    for (int i = 0; i < kCrossed; ++i)
        addConnector(*scene, {{0, (i + 0.5) * kApart}, {kApart * (count + 1), (i + 0.5) * kApart}});
    scene->findPathIntersections();
    return scene;
}

// With 25 of its marks in view.
void BM_PaintPartOfLong(benchmark::State& state)
{
    const char* const decorator = kDecorators[static_cast<std::size_t>(state.range(0))];
    const auto scene = makeLongLines(decorator, 1);
    QImage image(500, 500, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    for (auto _ : state)
        scene->render(image, {0, 0, 500, 500}, {0, 4000, 500, 500});
    state.SetLabel(decorator);
}
BENCHMARK(BM_PaintPartOfLong)->DenseRange(0, 4)->Unit(benchmark::kMicrosecond);

void BM_PanOverLong(benchmark::State& state)
{
    const char* const decorator = kDecorators[static_cast<std::size_t>(state.range(0))];
    const auto scene = makeLongLines(decorator, 16);
    GLCanvas& canvas = *new GLCanvas(Vetra::StringID("bench"));
    canvas.setSize({400, 1000});
    canvas.setScene(scene.get());
    canvas.show();
    QCoreApplication::processEvents();
    double step = 10;
    for (auto _ : state) {
        canvas.translate(0, step = -step);
        QCoreApplication::processEvents();
    }
    canvas.destroy();
    state.SetLabel(decorator);
}
BENCHMARK(BM_PanOverLong)->DenseRange(0, 4)->Unit(benchmark::kMillisecond);

/// Each edge of a file in Graphviz's "plain" format as a connector of three pieces.
std::vector<std::vector<Vetra::GLPoint<double>>> readLayout(const QString& path)
{
    constexpr double kPointsAnInch = 72;
    std::vector<std::vector<Vetra::GLPoint<double>>> edges;
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        return edges;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine());
        // The names before may hold spaces within quotes, so the points are looked for by form.
        const QStringList words = line.split(QLatin1Char(' '));
        const auto isWord = [&](int i) { return i < words.size(); };
        if (words[0] != QLatin1String("edge"))
            continue;
        for (int i = 3; isWord(i); ++i) {
            bool isCount = false;
            const int count = words[i].toInt(&isCount);
            if (!isCount || count < 2 || !isWord(i + 2 * count))
                continue;
            const auto at = [&](int n) {
                return Vetra::GLPoint<double>{words[i + 1 + 2 * n].toDouble() * kPointsAnInch,
                                              words[i + 2 + 2 * n].toDouble() * kPointsAnInch};
            };
            const auto from = at(0), to = at(count - 1);
            const double middle = (from.y + to.y) / 2;
            edges.push_back({from, {from.x, middle}, {to.x, middle}, to});
            break;
        }
    }
    return edges;
}

struct Layout {
    std::string name;
    std::vector<std::vector<Vetra::GLPoint<double>>> edges;
    std::size_t crossings = 0;
};

Vetra::Holder<Scene> makeScene(const Layout& layout, const char* decorator)
{
    auto scene = Scene::createScene();
    scene->usePathIntersectionsDecorator(decorator);
    for (const auto& edge : layout.edges)
        addConnector(*scene, edge);
    scene->findPathIntersections();
    return scene;
}

/// The four with most crossings in the folder that TOVA_LAYOUTS names, or else in the examples'.
const std::vector<Layout>& layouts()
{
    static const std::vector<Layout> found = [] {
        const QDir folder(qEnvironmentVariable("TOVA_LAYOUTS", QStringLiteral(TOVA_DIAGRAMS)));
        std::vector<Layout> all;
        for (const QString& name : folder.entryList({QStringLiteral("*.plain")})) {
            all.push_back({name.toStdString(), readLayout(folder.filePath(name))});
            all.back().crossings = makeScene(all.back(), "none")->pathIntersectionsCount();
        }
        std::ranges::sort(all, std::ranges::greater(), &Layout::crossings);
        all.resize(std::min<std::size_t>(all.size(), 4));
        return all;
    }();
    return found;
}

void BM_PaintLayout(benchmark::State& state)
{
    const auto index = static_cast<std::size_t>(state.range(0));
    if (index >= layouts().size())
        return state.SkipWithError("no such layout");
    const Layout& layout = layouts()[index];
    const char* const decorator = kDecorators[static_cast<std::size_t>(state.range(1))];
    const auto scene = makeScene(layout, decorator);
    const auto bounds = scene->getBounds();
    const double width = std::min(bounds.width, 2.0 * kWidth);
    const double height = std::min(bounds.height, 2.0 * kHeight);
    QImage image(static_cast<int>(width), static_cast<int>(height),
                 QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        image.fill(Qt::white);
        scene->render(
            image, {0, 0, width, height},
            {bounds.center().x - width / 2, bounds.center().y - height / 2, width, height});
    }
    state.SetLabel(std::string(decorator) + " " + layout.name);
    state.counters["crossings"] = static_cast<double>(layout.crossings);
}
BENCHMARK(BM_PaintLayout)
    ->ArgNames({"layout", "decorator"})
    ->ArgsProduct({{0, 1, 2, 3}, {0, 1, 3}})
    ->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
