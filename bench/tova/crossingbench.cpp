// Finding crossings, against a sweep that keeps its active rows in a std::set by y.
#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/linesweeptask.h"
#include "nodes/crossings/pathintersectionsworker.h"

#include "tova/nodes/rectnode.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <cmath>
#include <optional>
#include <random>
#include <set>
#include <unordered_map>

namespace {

using namespace Tova2;
using Point = Vetra::GLPoint<double>;
using Points = std::vector<Point>;

enum Layout { Diagram, Comb };

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

class Paths final : public CrossingSource, public CrossingResults {
public:
    explicit Paths(std::vector<Points> paths) : m_paths(std::move(paths)), m_nodes(m_paths.size())
    {
        for (std::size_t i = 0; i < m_paths.size(); ++i) {
            m_nodes[i].setOpacity(0.5);
            m_refs.emplace_back(m_nodes[i]);
            m_byImpl.emplace(m_refs[i].getImpl(), i);
        }
    }

    bool describe(const WeakRef& node, CrossingPath& path) override
    {
        path.points = m_paths[m_next ? *m_next : m_byImpl.at(node.getImpl())];
        if (m_next)
            ++*m_next;
        return true;
    }
    void crossingsFound(PathIntersectionsUpdate&& update) override { m_last = std::move(update); }
    /// The worker asks for all, in order: keeps the look-up of the bench out of the figures.
    void expectAll() { m_next = 0; }
    void expectAny() { m_next.reset(); }
    void reportAll(PathIntersectionsWorker& worker)
    {
        for (const WeakRef& ref : m_refs)
            worker.nodeUpdated(ref);
    }

    std::vector<Points> m_paths;
    std::vector<RectNode> m_nodes;
    std::vector<WeakRef> m_refs;
    PathIntersectionsUpdate m_last;

private:
    std::optional<std::size_t> m_next;
    std::unordered_map<NodeImpl*, std::size_t> m_byImpl;
};

struct Row {
    double y, left, right;
    std::size_t path;
};
struct Column {
    double x, top, bottom;
    std::size_t path;
};
struct PlainRecord {
    double x, y;
    std::uint32_t role;
    std::size_t other;
    double clearance[4];
};

struct Pieces {
    std::vector<Row> rows;
    std::vector<Column> columns;
};

Pieces takePieces(const std::vector<Points>& paths)
{
    Pieces pieces;
    for (std::size_t p = 0; p < paths.size(); ++p) {
        for (std::size_t i = 0; i + 1 < paths[p].size(); ++i) {
            const auto &a = paths[p][i], &b = paths[p][i + 1];
            if (a.x == b.x)
                pieces.columns.push_back({a.x, std::min(a.y, b.y), std::max(a.y, b.y), p});
            else if (a.y == b.y)
                pieces.rows.push_back({a.y, std::min(a.x, b.x), std::max(a.x, b.x), p});
        }
    }
    return pieces;
}

/// The peer: sorts, then keeps active rows in a set; `visit` gets each crossing.
template <class Visit>
void setSweep(Pieces& pieces, Visit&& visit)
{
    std::ranges::sort(pieces.columns, {}, &Column::x);
    std::ranges::sort(pieces.rows, {}, &Row::left);
    std::vector<std::size_t> ends(pieces.rows.size());
    for (std::size_t i = 0; i < ends.size(); ++i)
        ends[i] = i;
    std::ranges::sort(ends, {}, [&](std::size_t i) { return pieces.rows[i].right; });
    std::set<std::pair<double, std::size_t>> active;
    std::size_t start = 0, end = 0;
    for (const Column& column : pieces.columns) {
        for (; start < pieces.rows.size() && pieces.rows[start].left < column.x; ++start)
            active.emplace(pieces.rows[start].y, start);
        for (; end < ends.size() && pieces.rows[ends[end]].right <= column.x; ++end)
            active.erase({pieces.rows[ends[end]].y, ends[end]});
        for (auto row = active.upper_bound({column.top, pieces.rows.size()});
             row != active.end() && row->first < column.bottom; ++row)
            visit(column, pieces.rows[row->second]);
    }
}

std::vector<Points> makePaths(const benchmark::State& state)
{
    return state.range(0) == Comb ? makeComb(state.range(1)) : makeDiagram(state.range(1));
}

void BM_PeerSetSweepCounts(benchmark::State& state)
{
    const Pieces pieces = takePieces(makePaths(state));
    std::size_t crossings = 0;
    for (auto _ : state) {
        state.PauseTiming();
        Pieces copy = pieces;
        crossings = 0;
        state.ResumeTiming();
        setSweep(copy, [&](const Column&, const Row&) { ++crossings; });
    }
    state.counters["crossings"] = static_cast<double>(crossings);
}

/// From the points to plain records, in one list for each path.
void BM_PeerSetSweepWithRecords(benchmark::State& state)
{
    const auto paths = makePaths(state);
    for (auto _ : state) {
        Pieces pieces = takePieces(paths);
        std::vector<std::vector<PlainRecord>> records(paths.size());
        setSweep(pieces, [&](const Column& v, const Row& h) {
            PlainRecord record{
                v.x, h.y, 0, h.path, {h.y - v.top, v.x - h.left, v.bottom - h.y, h.right - v.x}};
            records[v.path].push_back(record);
            record.role = 1;
            record.other = v.path;
            records[h.path].push_back(record);
        });
        benchmark::DoNotOptimize(records.data());
        state.PauseTiming();
        records.clear();
        state.ResumeTiming();
    }
}

void BM_Sweep(benchmark::State& state)
{
    Paths paths(makePaths(state));
    Host::CooperativeTaskManager manager{[] { return std::chrono::nanoseconds(0); }};
    PathIntersectionsWorker worker(paths, paths, manager);
    paths.expectAll();
    paths.reportAll(worker);
    manager.runAll();
    for (auto _ : state) {
        FullSweep sweep(worker.state());
        Host::TaskBudget endless;
        sweep.run(endless);
    }
    state.counters["crossings"] = static_cast<double>(worker.crossingCount());
}

void BM_WholePass(benchmark::State& state)
{
    Paths paths(makePaths(state));
    Host::CooperativeTaskManager manager{[] { return std::chrono::nanoseconds(0); }};
    for (auto _ : state) {
        state.PauseTiming();
        auto worker = std::make_unique<PathIntersectionsWorker>(paths, paths, manager);
        paths.expectAll();
        paths.reportAll(*worker);
        state.ResumeTiming();
        manager.runAll();
        state.PauseTiming();
        worker.reset();
        paths.m_last.items.clear();
        state.ResumeTiming();
    }
}

/// One connector moves to and fro; from the report to the published result.
void BM_OneMoved(benchmark::State& state)
{
    Paths paths(makePaths(state));
    Host::CooperativeTaskManager manager{[] { return std::chrono::nanoseconds(0); }};
    PathIntersectionsWorker worker(paths, paths, manager);
    paths.expectAll();
    paths.reportAll(worker);
    manager.runAll();
    paths.expectAny();
    std::size_t next = 0;
    for (auto _ : state) {
        next = (next + 7919) % paths.m_paths.size();
        for (Point& point : paths.m_paths[next])
            point.x += 5;
        worker.nodeUpdated(paths.m_refs[next]);
        manager.runAll();
    }
}

/// How long the user waits at most for one slice of 4 ms.
void BM_LongestSlice(benchmark::State& state)
{
    using Clock = std::chrono::steady_clock;
    Paths paths(makePaths(state));
    double longest = 0;
    for (auto _ : state) {
        Host::CooperativeTaskManager manager(
            [] { return std::chrono::nanoseconds(Clock::now().time_since_epoch()); });
        PathIntersectionsWorker worker(paths, paths, manager);
        paths.expectAll();
        paths.reportAll(worker);
        for (bool isLeft = true; isLeft;) {
            const auto start = Clock::now();
            isLeft = manager.runSlice();
            longest = std::max(
                longest, std::chrono::duration<double, std::milli>(Clock::now() - start).count());
        }
    }
    state.counters["longest_ms"] = longest;
}

void sizes(benchmark::internal::Benchmark* bench)
{
    for (const int layout : {Diagram, Comb}) {
        for (const int count : {10'000, 100'000, 1'000'000})
            bench->Args({layout, count});
    }
    bench->ArgNames({"comb", "segments"})->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_PeerSetSweepCounts)->Apply(sizes);
BENCHMARK(BM_Sweep)->Apply(sizes);
BENCHMARK(BM_PeerSetSweepWithRecords)->Apply(sizes);
BENCHMARK(BM_WholePass)->Apply(sizes);
BENCHMARK(BM_OneMoved)->Apply(sizes);
BENCHMARK(BM_LongestSlice)->Apply(sizes)->Iterations(1);

} // namespace

BENCHMARK_MAIN();
