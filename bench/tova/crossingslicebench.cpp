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

Longest runInSlices(Host::CooperativeTaskManager& manager)
{
    Longest longest;
    for (bool isLeft = true; isLeft;) {
        const Moment start = Moment::now(ownClock());
        isLeft = manager.runSlice();
        longest.note(start, Moment::now(ownClock()));
    }
    return longest;
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
BENCHMARK(BM_InputWait)->Apply(large);

} // namespace

int main(int argc, char** argv)
{
    return runBenchmarks(argc, argv);
}
