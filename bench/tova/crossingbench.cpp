// Finding crossings, against a sweep that keeps its active rows in a std::set by y.
#include "crossinglayouts.h"

#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/linesweeptask.h"

#include <set>

namespace {

using namespace Tova2;

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
        for (auto& point : paths.m_paths[next])
            point.x += 5;
        worker.nodeUpdated(paths.m_refs[next]);
        manager.runAll();
    }
}

BENCHMARK(BM_PeerSetSweepCounts)->Apply(crossingSizes);
BENCHMARK(BM_Sweep)->Apply(crossingSizes);
BENCHMARK(BM_PeerSetSweepWithRecords)->Apply(crossingSizes);
BENCHMARK(BM_WholePass)->Apply(crossingSizes);
BENCHMARK(BM_OneMoved)->Apply(crossingSizes);

} // namespace
