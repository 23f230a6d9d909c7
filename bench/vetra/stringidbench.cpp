#include "vetra/stringid.h"

#include <benchmark/benchmark.h>

#include <string>
#include <unordered_map>
#include <vector>

namespace {

// What interning may cost is told by the container everyone would use instead: one lookup in a map
// of the same texts. The argument is the number of texts; the names are like those of tags and
// roles.
std::vector<std::string> makeNames(std::int64_t count)
{
    std::vector<std::string> names;
    for (std::int64_t i = 0; i < count; ++i)
        names.push_back((i % 2 ? "ConnectorLabel_" : "port") + std::to_string(i));
    return names;
}

void BM_MapLookup(benchmark::State& state)
{
    const auto names = makeNames(state.range(0));
    std::unordered_map<std::string, int> map;
    for (const auto& name : names)
        map.emplace(name, 1);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(map.find(names[i]));
        i = i + 1 == names.size() ? 0 : i + 1;
    }
}
BENCHMARK(BM_MapLookup)->Arg(16)->Arg(256)->Arg(4096)->Arg(65536)->ThreadRange(1, 2);

void BM_StringIDFromText(benchmark::State& state)
{
    const auto names = makeNames(state.range(0));
    for (const auto& name : names)
        Vetra::StringID{name};
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(Vetra::StringID(names[i]));
        i = i + 1 == names.size() ? 0 : i + 1;
    }
}
BENCHMARK(BM_StringIDFromText)->Arg(16)->Arg(256)->Arg(4096)->Arg(65536)->ThreadRange(1, 2);

} // namespace
