// One edit of a large diagram and the turn of the event loop that shows it, beside the same edit of
// a bare toolkit scene in the toolkit's own view; and building the diagram.

#include "peers.h"
#include "widgets/qt.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QGraphicsView>

#include <string>
#include <vector>

using namespace Tova2;

namespace {

constexpr int kBlocks = 20000;
constexpr double kPitch = 100, kHeight = 60;

Vetra::GLPoint<double> cornerOf(int index)
{
    const int columns = gridColumns(kBlocks);
    return {index % columns * kPitch, index / columns * kPitch};
}

/// A box with a title and three ports.
RectNode addBlock(Scene& scene, int index)
{
    RectNode block(Vetra::GLRect<double>{0, 0, kHeight, kHeight / 2});
    block.setPosition(cornerOf(index));
    scene.addNode(block);
    TextNode title("Block " + std::to_string(index));
    title.setPosition({5, 5});
    title.setParent(block);
    for (int i = 0; i < 3; ++i) {
        EllipseNode port(Ellipse({-2, -2, 4, 4}));
        port.setPosition({i < 2 ? 0.0 : kHeight, 10.0 + 5 * i});
        port.setParent(block);
    }
    return block;
}

const std::vector<QPointF> kBends{{60, 15}, {80, 15}, {80, 45}, {100, 45}};

LineEndDecoration arrowHead()
{
    return LineEndings::createFilledArrow(StrokeStyle::SolidLine);
}

OpenLinearPathNode addConnector(Scene& scene, int index)
{
    std::vector<Vetra::GLPoint<double>> points;
    for (const QPointF& bend : kBends)
        points.push_back({bend.x(), bend.y()});
    OpenLinearPathNode connector(points);
    connector.setPosition(cornerOf(index));
    connector.setEndDecoration(arrowHead());
    scene.addNode(connector);
    return connector;
}

struct Diagram {
    Vetra::Holder<Scene> scene = Scene::createScene();
    std::vector<RectNode> blocks;
    std::vector<OpenLinearPathNode> connectors;

    explicit Diagram(int count = kBlocks)
    {
        for (int i = 0; i < count; ++i)
            blocks.push_back(addBlock(*scene, i));
        for (int i = 0; i < count; ++i)
            connectors.push_back(addConnector(*scene, i));
    }
};

QGraphicsItem* addBareBlock(QGraphicsScene& scene, int index)
{
    auto* const block = scene.addRect(0, 0, kHeight, kHeight / 2);
    block->setPos(cornerOf(index).x, cornerOf(index).y);
    auto* const title = new QGraphicsSimpleTextItem(QStringLiteral("Block %1").arg(index), block);
    title->setPos(5, 5);
    for (int i = 0; i < 3; ++i) {
        auto* const port = new QGraphicsEllipseItem(-2, -2, 4, 4, block);
        port->setPos(i < 2 ? 0 : kHeight, 10 + 5 * i);
    }
    return block;
}

QGraphicsItem* addBareConnector(QGraphicsScene& scene, int index)
{
    QPainterPath path(kBends.front());
    for (const QPointF& bend : kBends)
        path.lineTo(bend);
    auto* const connector = scene.addPath(path);
    connector->setPos(cornerOf(index).x, cornerOf(index).y);
    auto* const head = new QGraphicsPolygonItem(QPolygonF({{0, -2}, {6, 0}, {0, 2}}), connector);
    head->setPos(kBends.back());
    return connector;
}

struct BareDiagram {
    QGraphicsScene scene;
    std::vector<QGraphicsItem*> blocks, connectors;

    explicit BareDiagram(int count = kBlocks)
    {
        scene.setItemIndexMethod(QGraphicsScene::NoIndex);
        for (int i = 0; i < count; ++i)
            blocks.push_back(addBareBlock(scene, i));
        for (int i = 0; i < count; ++i)
            connectors.push_back(addBareConnector(scene, i));
    }
};

void turn()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// The diagram on screen, with nothing left to be done.
template <class Shown>
void settle(Shown&)
{
    for (int i = 0; i < 500; ++i)
        turn();
}

class ShownDiagram : public Diagram {
public:
    ShownDiagram() : m_canvas(*new GLCanvas(Vetra::StringID("bench")))
    {
        m_canvas.setSize({1200, 800});
        m_canvas.setScene(scene.get());
        m_canvas.show();
        settle(m_canvas);
    }
    ~ShownDiagram() { m_canvas.destroy(); }

private:
    GLCanvas& m_canvas;
};

class ShownBareDiagram : public BareDiagram {
public:
    ShownBareDiagram() : m_view(&scene)
    {
        m_view.setViewportUpdateMode(QGraphicsView::MinimalViewportUpdate);
        m_view.resize(1200, 800);
        m_view.show();
        settle(m_view);
    }

private:
    QGraphicsView m_view;
};

template <class Edit>
void measureTurn(benchmark::State& state, Edit edit)
{
    int i = 0;
    for (auto _ : state) {
        edit(i++);
        turn();
    }
}

// 500 turns apart, all over the diagram.
int spread(int i)
{
    return i * 7919 % kBlocks;
}

void BM_AddChild(benchmark::State& state)
{
    ShownDiagram diagram;
    measureTurn(state, [&](int i) {
        EllipseNode port(Ellipse({-2, -2, 4, 4}));
        port.setParent(diagram.blocks[spread(i)]);
    });
}
BENCHMARK(BM_AddChild)->Unit(benchmark::kMicrosecond);

void BM_AddBareChild(benchmark::State& state)
{
    ShownBareDiagram diagram;
    measureTurn(state,
                [&](int i) { new QGraphicsEllipseItem(-2, -2, 4, 4, diagram.blocks[spread(i)]); });
}
BENCHMARK(BM_AddBareChild)->Unit(benchmark::kMicrosecond);

void BM_ReplaceArrowHead(benchmark::State& state)
{
    ShownDiagram diagram;
    measureTurn(state, [&](int i) { diagram.connectors[spread(i)].setEndDecoration(arrowHead()); });
}
BENCHMARK(BM_ReplaceArrowHead)->Unit(benchmark::kMicrosecond);

void BM_ToTop(benchmark::State& state)
{
    ShownDiagram diagram;
    measureTurn(state, [&](int i) { diagram.blocks[spread(i)].toTop(); });
}
BENCHMARK(BM_ToTop)->Unit(benchmark::kMicrosecond);

void BM_BareToTop(benchmark::State& state)
{
    ShownBareDiagram diagram;
    measureTurn(state, [&](int i) { diagram.blocks[spread(i)]->setZValue(i + 1); });
}
BENCHMARK(BM_BareToTop)->Unit(benchmark::kMicrosecond);

void BM_AddTopLevel(benchmark::State& state)
{
    ShownDiagram diagram;
    measureTurn(state, [&](int i) { addBlock(*diagram.scene, spread(i)); });
}
BENCHMARK(BM_AddTopLevel)->Unit(benchmark::kMicrosecond);

void BM_AddBareTopLevel(benchmark::State& state)
{
    ShownBareDiagram diagram;
    measureTurn(state, [&](int i) { addBareBlock(diagram.scene, spread(i)); });
}
BENCHMARK(BM_AddBareTopLevel)->Unit(benchmark::kMicrosecond);

// A tenth of a shown scene of rectangles goes above one of them.
void BM_PlaceAboveOfSeveral(benchmark::State& state)
{
    auto scene = makeGrid(8000);
    auto& canvas = *new GLCanvas(Vetra::StringID("bench"));
    canvas.setScene(scene.get());
    canvas.show();
    settle(canvas);
    const auto nodes = scene->getAllNodes();
    std::vector<Node> moved;
    for (std::size_t i = 0; i < nodes.size(); i += 10)
        moved.push_back(nodes[i]);
    std::size_t i = 1;
    for (auto _ : state) {
        Node::placeAbove(moved, nodes[i += 10]);
        turn();
        if (i + 20 > nodes.size())
            i = 1;
    }
    canvas.destroy();
}
BENCHMARK(BM_PlaceAboveOfSeveral)->Unit(benchmark::kMillisecond);

/// Each node hangs under the one before.
void BM_MoveChain(benchmark::State& state)
{
    auto scene = makeGrid(1);
    RectNode root = makeBlock(0, 1);
    scene->addNode(root);
    Node last = root;
    for (int i = 1; i < state.range(0); ++i) {
        RectNode node = makeBlock(0, 1);
        node.setParent(last);
        last = node;
    }
    auto& canvas = *new GLCanvas(Vetra::StringID("bench"));
    canvas.setScene(scene.get());
    double x = 0;
    for (auto _ : state)
        root.setPosition({x = 1 - x, 0});
    canvas.destroy();
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_MoveChain)
    ->Arg(250)
    ->Arg(1000)
    ->Unit(benchmark::kMicrosecond)
    ->Complexity(benchmark::oN);

void BM_AddPanelMembers(benchmark::State& state)
{
    for (auto _ : state) {
        const auto panel = Vetra::Holder<AutoLayoutPanel>(new AutoLayoutPanel);
        for (int i = 0; i < state.range(0); ++i)
            panel->addNode(RectNode(Vetra::GLRect<double>{0, 0, 10, 10}));
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(BM_AddPanelMembers)
    ->Arg(500)
    ->Arg(2000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oN);

void BM_Build(benchmark::State& state)
{
    for (auto _ : state) {
        auto diagram = std::make_unique<Diagram>();
        state.PauseTiming();
        turn();
        diagram.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_Build)->Unit(benchmark::kMillisecond);

void BM_BuildBare(benchmark::State& state)
{
    for (auto _ : state) {
        auto diagram = std::make_unique<BareDiagram>();
        state.PauseTiming();
        turn();
        diagram.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(BM_BuildBare)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
