#include "peers.h"

#include "vetra/shape.h"

#include <QApplication>
#include <QGraphicsPathItem>
#include <QGraphicsRectItem>
#include <QPen>

#include <benchmark/benchmark.h>

#include <cmath>

using namespace Tova2;

namespace {

constexpr double kStroke = 1.5;
constexpr int kSpan = 3; // cells that a connector crosses

struct Cell {
    double x, y;
};

Cell cellOf(int index, int columns)
{
    return {index % columns * kCell, index / columns * kCell};
}

DrawStyle blockStyle(int index)
{
    const Vetra::Color fill(0.5 + 0.5 * (index % 7) / 7, 0.7, 0.9);
    DrawStyle style(Stroke(Vetra::Color(0.1, 0.1, 0.3), kStroke, StrokeStyle::SolidLine,
                           StrokeCapStyle::FlatCap, StrokeJoinStyle::MiterJoin, nullptr),
                    Fill(fill));
    style.setIsAntiAliased(true);
    return style;
}

const double kBends[5][2] = {{0, 0}, {0.5, 0}, {0.5, 1}, {1.5, 1}, {1.5, kSpan}};

Vetra::Shape connectorShape()
{
    Vetra::Shape shape;
    shape.moveTo({kBends[0][0] * kCell, kBends[0][1] * kCell});
    for (int i = 1; i < 5; ++i)
        shape.lineTo({kBends[i][0] * kCell, kBends[i][1] * kCell});
    return shape;
}

QPainterPath bareConnectorPath()
{
    QPainterPath path;
    for (int i = 1; i < 5; ++i)
        path.lineTo(kBends[i][0] * kCell, kBends[i][1] * kCell);
    return path;
}

} // namespace

int gridColumns(int count)
{
    return std::max(1, static_cast<int>(std::sqrt(count * 1.5)));
}

RectNode makeBlock(int index, int columns)
{
    const Cell cell = cellOf(index, columns);
    RectNode node(Vetra::GLRect<double>{0, 0, kBlock, kBlock});
    node.setDrawStyle(blockStyle(index));
    node.setPosition({cell.x, cell.y});
    return node;
}

Vetra::Holder<Scene> makeGrid(int count)
{
    auto scene = Scene::createScene();
    const int columns = gridColumns(count);
    for (int i = 0; i < count; ++i)
        scene->addNode(makeBlock(i, columns));
    return scene;
}

QGraphicsItem* makeBareBlock(int index, int columns)
{
    const Cell cell = cellOf(index, columns);
    auto* const item = new QGraphicsRectItem(0, 0, kBlock, kBlock);
    item->setPen(
        QPen(QColor::fromRgbF(0.1, 0.1, 0.3), kStroke, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    item->setBrush(QColor::fromRgbF(0.5 + 0.5 * (index % 7) / 7, 0.7, 0.9));
    item->setPos(cell.x, cell.y);
    return item;
}

std::unique_ptr<QGraphicsScene> makeBareGrid(int count)
{
    auto scene = std::make_unique<QGraphicsScene>();
    scene->setItemIndexMethod(QGraphicsScene::NoIndex);
    const int columns = gridColumns(count);
    for (int i = 0; i < count; ++i)
        scene->addItem(makeBareBlock(i, columns));
    return scene;
}

Vetra::Holder<Scene> makeDiagram(int blocks)
{
    auto scene = makeGrid(blocks);
    const int columns = gridColumns(blocks);
    DrawStyle style = blockStyle(0);
    style.setFill(Fill::NoFill());
    for (int i = 0; i < blocks; ++i) {
        const Cell cell = cellOf(i, columns);
        ShapeNode connector(connectorShape());
        connector.setDrawStyle(style);
        connector.setPosition({cell.x + kBlock / 2, cell.y + kBlock / 2});
        scene->addNode(connector);
    }
    return scene;
}

std::unique_ptr<QGraphicsScene> makeBareDiagram(int blocks)
{
    auto scene = makeBareGrid(blocks);
    const int columns = gridColumns(blocks);
    for (int i = 0; i < blocks; ++i) {
        const Cell cell = cellOf(i, columns);
        auto* const item = new QGraphicsPathItem(bareConnectorPath());
        item->setPen(QPen(QColor::fromRgbF(0.1, 0.1, 0.3), kStroke, Qt::SolidLine, Qt::FlatCap,
                          Qt::MiterJoin));
        item->setPos(cell.x + kBlock / 2, cell.y + kBlock / 2);
        scene->addItem(item);
    }
    return scene;
}

int runBenchmarks(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
