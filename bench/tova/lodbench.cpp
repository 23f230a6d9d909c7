#include "peers.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QGraphicsPathItem>
#include <QGraphicsRectItem>
#include <QGraphicsSimpleTextItem>
#include <QImage>
#include <QPainter>

#include <string>

// Whole scenes zoomed out until they fit: what the coarsest quality is for. Of the library's own
// qualities the full one is measured as well, to tell what the coarse one saves.

using namespace Tova2;

namespace {

constexpr int kWidth = 1600, kHeight = 1200;
constexpr double kCellWidth = 120, kCellHeight = 70;
constexpr double kBoxWidth = 80, kBoxHeight = 36;
constexpr double kFontSize = 10;

QPointF cornerOf(int index, int columns)
{
    return {index % columns * kCellWidth, index / columns * kCellHeight};
}

std::string labelOf(int index)
{
    return "Step " + std::to_string(index);
}

/// From the right of one box to the left of one in another row, with two bends.
std::vector<QPointF> connectorFrom(const QPointF& corner)
{
    const QPointF start = corner + QPointF(kBoxWidth, kBoxHeight / 2);
    const double middle = start.x() + (kCellWidth - kBoxWidth) / 2;
    const QPointF end(corner.x() + kCellWidth, start.y() + 2 * kCellHeight);
    return {start, {middle, start.y()}, {middle, end.y()}, end};
}

Vetra::Holder<Scene> makeLabelledDiagram(int count)
{
    auto scene = Scene::createScene();
    scene->setPathIntersectionsEnabled(false);
    const int columns = gridColumns(count);
    DrawStyle style(Stroke(Vetra::Color(0.1, 0.1, 0.3), 1.5, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill(Vetra::Color(0.7, 0.8, 0.9)));
    style.setIsAntiAliased(true);
    Vetra::Font font;
    font.setSize(kFontSize);
    for (int i = 0; i < count; ++i) {
        const QPointF corner = cornerOf(i, columns);
        std::vector<Vetra::GLPoint<double>> points;
        for (const QPointF& p : connectorFrom(corner))
            points.push_back({p.x(), p.y()});
        OpenLinearPathNode connector(points);
        connector.setDrawStyle(style);
        scene->addNode(connector);
    }
    for (int i = 0; i < count; ++i) {
        const QPointF corner = cornerOf(i, columns);
        RectNode box(Vetra::GLRect<double>{0, 0, kBoxWidth, kBoxHeight});
        box.setDrawStyle(style);
        box.setPosition({corner.x(), corner.y()});
        TextNode label(labelOf(i));
        label.setFont(font);
        label.setPosition({8, 10});
        label.setParent(box);
        scene->addNode(box);
    }
    return scene;
}

std::unique_ptr<QGraphicsScene> makeBareLabelledDiagram(int count)
{
    auto scene = std::make_unique<QGraphicsScene>();
    scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    const int columns = gridColumns(count);
    const QPen pen(QColor::fromRgbF(0.1, 0.1, 0.3), 1.5, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin);
    QFont font;
    font.setPixelSize(kFontSize);
    for (int i = 0; i < count; ++i) {
        QPainterPath path;
        for (const QPointF& p : connectorFrom(cornerOf(i, columns)))
            path.elementCount() == 0 ? path.moveTo(p) : path.lineTo(p);
        scene->addPath(path, pen);
    }
    for (int i = 0; i < count; ++i) {
        QGraphicsRectItem* const box =
            scene->addRect(0, 0, kBoxWidth, kBoxHeight, pen, QColor::fromRgbF(0.7, 0.8, 0.9));
        box->setPos(cornerOf(i, columns));
        auto* const label = new QGraphicsSimpleTextItem(QString::fromStdString(labelOf(i)), box);
        label->setFont(font);
        label->setPos(8, 10);
    }
    return scene;
}

void render(benchmark::State& state, Vetra::Holder<Scene> scene, const char* strategy)
{
    scene->setLODStrategyKey(strategy);
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    scene->render(image, {0, 0, kWidth, kHeight}, {}); // lays the text out
    for (auto _ : state) {
        image.fill(Qt::white);
        scene->render(image, {0, 0, kWidth, kHeight}, {});
    }
}

void renderBare(benchmark::State& state, const std::unique_ptr<QGraphicsScene>& scene)
{
    QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    const QRectF source = scene->itemsBoundingRect();
    QCoreApplication::processEvents();
    const auto paint = [&] {
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        scene->render(&painter, QRectF(0, 0, kWidth, kHeight), source, Qt::IgnoreAspectRatio);
    };
    paint();
    for (auto _ : state)
        paint();
}

void BM_LodBlocks(benchmark::State& state)
{
    render(state, makeGrid(static_cast<int>(state.range(0))), "tova2::default");
}

void BM_FullQualityBlocks(benchmark::State& state)
{
    render(state, makeGrid(static_cast<int>(state.range(0))), "tova2::fullquality");
}

void BM_BareBlocks(benchmark::State& state)
{
    renderBare(state, makeBareGrid(static_cast<int>(state.range(0))));
}

void BM_LodDiagram(benchmark::State& state)
{
    render(state, makeDiagram(static_cast<int>(state.range(0)) / 2), "tova2::default");
}

void BM_BareDiagram(benchmark::State& state)
{
    renderBare(state, makeBareDiagram(static_cast<int>(state.range(0)) / 2));
}

void BM_LodLabelledDiagram(benchmark::State& state)
{
    render(state, makeLabelledDiagram(static_cast<int>(state.range(0))), "tova2::default");
}

void BM_FullQualityLabelledDiagram(benchmark::State& state)
{
    render(state, makeLabelledDiagram(static_cast<int>(state.range(0))), "tova2::fullquality");
}

void BM_BareLabelledDiagram(benchmark::State& state)
{
    renderBare(state, makeBareLabelledDiagram(static_cast<int>(state.range(0))));
}

void blocks(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("nodes")->Unit(benchmark::kMillisecond)->Arg(100000);
}

// Boxes; with their labels and connectors three times as many nodes.
void boxes(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("boxes")->Unit(benchmark::kMillisecond)->Arg(10000);
}

BENCHMARK(BM_LodBlocks)->Apply(blocks);
BENCHMARK(BM_FullQualityBlocks)->Apply(blocks);
BENCHMARK(BM_BareBlocks)->Apply(blocks);
BENCHMARK(BM_LodDiagram)->Apply(blocks);
BENCHMARK(BM_BareDiagram)->Apply(blocks);
BENCHMARK(BM_LodLabelledDiagram)->Apply(boxes);
BENCHMARK(BM_FullQualityLabelledDiagram)->Apply(boxes);
BENCHMARK(BM_BareLabelledDiagram)->Apply(boxes);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
