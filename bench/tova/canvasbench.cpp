// A scene on screen, beside the toolkit's own view of the same picture: with its index off, and on.

#include "peers.h"
#include "widgets/qt.h"

#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QGraphicsItem>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <vector>

#include <time.h>

using namespace Tova2;

namespace {

constexpr int kWidth = 1600, kHeight = 1000;

/// Of processor time, so that it does not matter what else runs on the machine.
double threadMilliseconds()
{
    timespec time;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// For the windows to come; the toolkit asks for this whenever it wants to know.
void setScreenRatio(double ratio)
{
    QGuiApplication::primaryScreen()->setProperty("_q_scaleFactor", ratio);
}

void turn()
{
    QCoreApplication::processEvents();
}

/// A canvas on the off-screen platform's screen.
class Shown {
public:
    explicit Shown(Vetra::Holder<Scene> scene, int width = kWidth, int height = kHeight,
                   double ratio = 1)
        : m_scene(std::move(scene)), m_canvas(*new GLCanvas(Vetra::StringID("bench")))
    {
        setScreenRatio(ratio);
        m_canvas.setSize({width, height});
        m_canvas.setScene(m_scene.get());
        const auto bounds = m_scene->getBounds();
        m_canvas.translateScenePointToViewPoint({bounds.center().x, bounds.center().y},
                                                {width / 2.0, height / 2.0});
        m_canvas.show();
        turn();
    }
    ~Shown() { m_canvas.destroy(); }
    Shown(const Shown&) = delete;
    Shown& operator=(const Shown&) = delete;

    GLCanvas& canvas() { return m_canvas; }
    Scene& scene() { return *m_scene; }
    void frame()
    {
        // A change of the background is one of every pixel.
        m_isOdd = !m_isOdd;
        Background background;
        background.setColor(Vetra::Color(1, 1, m_isOdd ? 1.0 : 0.99));
        m_scene->setBackground(background);
        turn();
    }

private:
    Vetra::Holder<Scene> m_scene;
    GLCanvas& m_canvas;
    bool m_isOdd = false;
};

class Peer {
public:
    Peer(std::unique_ptr<QGraphicsScene> scene, bool hasIndex) : m_scene(std::move(scene))
    {
        setScreenRatio(1);
        m_scene->setItemIndexMethod(hasIndex ? QGraphicsScene::BspTreeIndex
                                             : QGraphicsScene::NoIndex);
        m_view.setScene(m_scene.get());
        m_view.setRenderHint(QPainter::Antialiasing);
        m_view.resize(kWidth, kHeight);
        m_view.centerOn(m_scene->itemsBoundingRect().center());
        m_view.show();
        turn();
    }
    QGraphicsView& view() { return m_view; }

private:
    std::unique_ptr<QGraphicsScene> m_scene;
    QGraphicsView m_view;
};

void BM_Frame(benchmark::State& state)
{
    Shown shown(makeDiagram(static_cast<int>(state.range(0)) / 2));
    for (auto _ : state)
        shown.frame();
}

void BM_FrameOfView(benchmark::State& state)
{
    Peer peer(makeBareDiagram(static_cast<int>(state.range(0)) / 2), state.range(1));
    for (auto _ : state) {
        peer.view().viewport()->update();
        turn();
    }
}

/// All of the scene, a little nearer and farther: every pixel at another scale.
void BM_ZoomStepAtFit(benchmark::State& state)
{
    Shown shown(makeDiagram(static_cast<int>(state.range(0)) / 2));
    const auto bounds = shown.scene().getBounds();
    double scale = std::min(kWidth / bounds.width, kHeight / bounds.height);
    for (auto _ : state) {
        shown.canvas().setScale(scale *= 0.9999);
        turn();
    }
}

void moveOne(benchmark::State& state, Shown& shown)
{
    const auto middle = shown.canvas().getSceneRectInView().center();
    Node node = shown.scene().getNodeAt(middle);
    if (!node.isValid())
        node = shown.scene().getNodesIntersectingRect({middle.x, middle.y, kCell, kCell}).front();
    double step = 3;
    for (auto _ : state) {
        step = -step;
        node.translate(step, step);
        turn();
    }
}

void BM_MoveOne(benchmark::State& state)
{
    Shown shown(makeDiagram(static_cast<int>(state.range(0)) / 2));
    moveOne(state, shown);
}

// On screens of that many hundredths of a device pixel a pixel; the first is what to compare with.

std::unique_ptr<Shown> shownAtRatio(benchmark::State& state)
{
    const double ratio = static_cast<double>(state.range(0)) / 100;
    auto shown = std::make_unique<Shown>(makeDiagram(20000), kWidth, kHeight, ratio);
    if (shown->canvas().getBackingScaleFactor() != ratio)
        state.SkipWithError("the toolkit keeps to its ratio");
    return shown;
}

void BM_MoveOneAtRatio(benchmark::State& state)
{
    moveOne(state, *shownAtRatio(state));
}

void BM_DragViewAtRatio(benchmark::State& state)
{
    const auto shown = shownAtRatio(state);
    QWidget& widget = *toQt(shown->canvas());
    QPoint at(400, 300);
    const auto tell = [&](QEvent::Type type, Qt::MouseButton button) {
        QMouseEvent event(type, at, widget.mapToGlobal(at), button, Qt::MiddleButton, {});
        QCoreApplication::sendEvent(&widget, &event);
    };
    tell(QEvent::MouseButtonPress, Qt::MiddleButton);
    int i = 0;
    for (auto _ : state) {
        const int sign = ++i % 80 < 40 ? 1 : -1;
        at += QPoint(sign * (3 + i % 7), sign * (i % 5));
        tell(QEvent::MouseMove, Qt::NoButton);
        turn();
    }
    tell(QEvent::MouseButtonRelease, Qt::MiddleButton);
}

void BM_MoveOneInView(benchmark::State& state)
{
    Peer peer(makeBareDiagram(static_cast<int>(state.range(0)) / 2), state.range(1));
    QGraphicsItem* const item = peer.view().items(QRect(kWidth / 2, kHeight / 2, 12, 12)).front();
    double step = 3;
    for (auto _ : state) {
        step = -step;
        item->moveBy(step, step);
        turn();
    }
}

void BM_Pan(benchmark::State& state)
{
    Shown shown(makeDiagram(static_cast<int>(state.range(0)) / 2));
    double step = 10;
    for (auto _ : state) {
        shown.canvas().translate(step = -step, 0);
        turn();
    }
}

void BM_PanOfView(benchmark::State& state)
{
    Peer peer(makeBareDiagram(static_cast<int>(state.range(0)) / 2), state.range(1));
    QScrollBar& bar = *peer.view().horizontalScrollBar();
    int step = 10;
    for (auto _ : state) {
        bar.setValue(bar.value() + (step = -step));
        turn();
    }
}

/// The slow ones are what a user feels: a walk over the diagram in moves of a mouse.
void BM_PanPercentile(benchmark::State& state)
{
    Shown shown(makeDiagram(static_cast<int>(state.range(0)) / 2));
    std::vector<double> milliseconds;
    int i = 0;
    for (auto _ : state) {
        const double sign = ++i % 80 < 40 ? 1 : -1;
        const double begin = threadMilliseconds();
        shown.canvas().translate(sign * (3 + i % 17), sign * (i % 11));
        turn();
        milliseconds.push_back(threadMilliseconds() - begin);
    }
    std::sort(milliseconds.begin(), milliseconds.end());
    state.counters["p95_ms"] = milliseconds[milliseconds.size() * 95 / 100];
}

/// The same part of a larger and larger diagram.
void BM_FrameOfPart(benchmark::State& state)
{
    Shown shown(makeDiagram(static_cast<int>(state.range(0)) / 2), 200, 140);
    for (auto _ : state)
        shown.frame();
}

void counts(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("nodes")->Unit(benchmark::kMillisecond)->Arg(10000)->Arg(100000);
}

void ratios(benchmark::internal::Benchmark* bench)
{
    bench->ArgName("percent")
        ->Unit(benchmark::kMillisecond)
        ->Arg(100)
        ->Arg(125)
        ->Arg(150)
        ->Arg(200);
}

void peerCounts(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"nodes", "index"})->Unit(benchmark::kMillisecond);
    for (const int count : {10000, 100000}) {
        for (const int hasIndex : {0, 1})
            bench->Args({count, hasIndex});
    }
}

BENCHMARK(BM_Frame)->Apply(counts);
BENCHMARK(BM_FrameOfView)->Apply(peerCounts);
BENCHMARK(BM_ZoomStepAtFit)->Apply(counts);
BENCHMARK(BM_MoveOne)->Apply(counts);
BENCHMARK(BM_MoveOneAtRatio)->Apply(ratios);
BENCHMARK(BM_DragViewAtRatio)->Apply(ratios)->Iterations(400);
BENCHMARK(BM_MoveOneInView)->Apply(peerCounts);
// The smaller scene fits into the view, and does not scroll.
BENCHMARK(BM_Pan)->ArgName("nodes")->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanOfView)
    ->ArgNames({"nodes", "index"})
    ->Args({100000, 0})
    ->Args({100000, 1})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PanPercentile)
    ->ArgName("nodes")
    ->Arg(40000)
    ->Iterations(400)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FrameOfPart)->ArgName("nodes")->Arg(1000)->Arg(40000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_SCREEN_SCALE_FACTORS", "2"); // so that screens are asked for theirs
    return runBenchmarks(argc, argv);
}
