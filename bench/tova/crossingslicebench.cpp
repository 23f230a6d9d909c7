// How long a pass keeps the user waiting. Where others use the machine as well, the wall clock
// tells more of them than of us; so each figure stands beside that of the thread's own time.
#include "crossinglayouts.h"
#include "peers.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <pthread.h>
#include <thread>
#include <time.h>

namespace {

using namespace Tova2;

double millisecondsOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

clockid_t ownClock()
{
    clockid_t clock{};
    pthread_getcpuclockid(pthread_self(), &clock);
    return clock;
}

/// Of the wall, and of one thread.
struct Moment {
    double wall = 0, thread = 0;

    static Moment now(clockid_t clock)
    {
        return {millisecondsOf(CLOCK_MONOTONIC), millisecondsOf(clock)};
    }
};

struct Longest {
    Moment time;

    void note(const Moment& from, const Moment& to)
    {
        time.wall = std::max(time.wall, to.wall - from.wall);
        time.thread = std::max(time.thread, to.thread - from.thread);
    }
    void tell(benchmark::State& state, const std::string& what) const
    {
        state.counters[what + "_ms"] = time.wall;
        state.counters[what + "_thread_ms"] = time.thread;
    }
};

/// `between` is called after each slice, with its number.
template <class Between>
Longest runInSlices(Host::CooperativeTaskManager& manager, Between&& between)
{
    Longest longest;
    int slice = 0;
    for (bool isLeft = true; isLeft; between(slice++)) {
        const Moment start = Moment::now(ownClock());
        isLeft = manager.runSlice();
        longest.note(start, Moment::now(ownClock()));
    }
    return longest;
}

Longest runInSlices(Host::CooperativeTaskManager& manager)
{
    return runInSlices(manager, [](int) {});
}

/// The first pass, and one that has the results of another to replace.
void BM_LongestSlice(benchmark::State& state)
{
    Paths paths(makePaths(state));
    Longest first, second;
    for (auto _ : state) {
        Host::CooperativeTaskManager manager{{}};
        PathIntersectionsWorker worker(paths, paths, manager);
        for (Longest* const longest : {&first, &second}) {
            paths.expectAll();
            paths.reportAll(worker);
            *longest = runInSlices(manager);
        }
    }
    first.tell(state, "first");
    second.tell(state, "second");
}

/// So many level lines and as many upright ones, each across all of the others.
class Mesh {
public:
    explicit Mesh(int count)
    {
        const double end = 10.0 * count + 10;
        for (int i = 1; i <= count; ++i) {
            add({{0, 10.0 * i}, {end, 10.0 * i}});
            add({{10.0 * i, 0}, {10.0 * i, end}});
        }
    }
    Scene& scene() { return *m_scene; }
    std::vector<OpenLinearPathNode>& lines() { return m_lines; }

private:
    void add(const Points& points)
    {
        m_lines.emplace_back(points);
        m_scene->addNode(m_lines.back());
    }

    Vetra::Holder<Scene> m_scene = Scene::createScene();
    std::vector<OpenLinearPathNode> m_lines;
};

/// In a dense diagram: a first pass, one after a single edit, one during which lines move between
/// the slices, and one during which lines leave and come back.
void BM_LongestSliceWhileEdited(benchmark::State& state)
{
    constexpr int kEdits = 200; // then the rest of the pass has its peace
    for (auto _ : state) {
        Mesh mesh(static_cast<int>(state.range(0)));
        auto& lines = mesh.lines();
        auto& manager = Host::CooperativeTaskManager::instance();
        const auto lineAt = [&](int i) -> auto&
        {
            return lines[i * 7 % lines.size()];
        };
        runInSlices(manager).tell(state, "first");
        lines[0].translate({1, 1});
        runInSlices(manager).tell(state, "single");
        const auto startPass = [&] {
            for (OpenLinearPathNode& line : lines)
                line.translate({1, 1});
        };
        startPass();
        runInSlices(manager, [&](int slice) {
            if (slice < kEdits)
                lineAt(slice).translate({1, 1});
        }).tell(state, "moved");
        startPass();
        runInSlices(manager, [&](int slice) {
            if (slice >= kEdits)
                return;
            mesh.scene().removeNode(lineAt(slice));
            if (slice % 2)
                mesh.scene().addNode(lineAt(slice - 1));
        }).tell(state, "removed");
        state.counters["crossings"] = static_cast<double>(mesh.scene().pathIntersectionsCount());
    }
}

/// Stands for the user: acts every few milliseconds, and notes when the program takes notice.
class Input final : public QObject {
public:
    ~Input() override { stop(); }

    void start()
    {
        m_isOn = true;
        m_hand = std::thread([this] {
            while (m_isOn) {
                QCoreApplication::postEvent(this, new Act(Moment::now(m_clock)));
                std::this_thread::sleep_for(std::chrono::milliseconds(3));
            }
        });
    }
    void stop()
    {
        m_isOn = false;
        if (m_hand.joinable())
            m_hand.join();
        QCoreApplication::removePostedEvents(this);
    }
    const Longest& longest() const { return m_longest; }
    int count() const { return m_count; }

protected:
    struct Act final : QEvent {
        explicit Act(const Moment& done) : QEvent(QEvent::User), m_done(done) {}
        Moment m_done;
    };
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        m_longest.note(static_cast<Act*>(event)->m_done, Moment::now(m_clock));
        ++m_count;
        return true;
    }

private:
    clockid_t m_clock = ownClock(); ///< of the thread that takes notice
    Longest m_longest;
    int m_count = 0;
    std::atomic<bool> m_isOn = false;
    std::thread m_hand;
};

void runLoop(Input& input)
{
    const auto& manager = Host::CooperativeTaskManager::instance();
    input.start();
    while (manager.sessionCount() > 0)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    input.stop();
}

/// A scene on an event loop: all paths are new, then all have moved in z.
void BM_InputWait(benchmark::State& state)
{
    Input first, second;
    for (auto _ : state) {
        const auto scene = Scene::createScene();
        std::vector<OpenLinearPathNode> nodes;
        for (const auto& points : makePaths(state)) {
            nodes.emplace_back(points);
            scene->addNode(nodes.back());
        }
        runLoop(first);
        for (OpenLinearPathNode& node : nodes)
            node.setZValue(1);
        runLoop(second);
        state.counters["crossings"] = static_cast<double>(scene->pathIntersectionsCount());
    }
    first.longest().tell(state, "first");
    second.longest().tell(state, "second");
    state.counters["acts"] = first.count() + second.count();
}

void large(benchmark::internal::Benchmark* bench)
{
    bench->ArgNames({"comb", "segments"})->Unit(benchmark::kMillisecond)->Iterations(1);
    for (const int layout : {Diagram, Comb}) {
        for (const int count : {100'000, 1'000'000})
            bench->Args({layout, count});
    }
}

BENCHMARK(BM_LongestSlice)->Apply(large);
BENCHMARK(BM_LongestSliceWhileEdited)
    ->ArgName("lines")
    ->Unit(benchmark::kMillisecond)
    ->Iterations(1)
    ->Arg(500)
    ->Arg(1000)
    ->Arg(1500);
BENCHMARK(BM_InputWait)->Apply(large);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
