#include "host/diagnosticscounter.h"

#include <map>
#include <mutex>

namespace Host {

namespace {

struct Registry {
    std::mutex mutex;
    std::map<std::string, DiagnosticsCounter, std::less<>> counters; // nodes never move
};

Registry& registry()
{
    // Never destroyed: objects that are counted may die later than any static.
    static Registry& instance = *new Registry;
    return instance;
}

} // namespace

DiagnosticsCounter::DiagnosticsCounter(std::string_view name, CounterKind kind)
    : m_name(name), m_kind(kind)
{}

DiagnosticsCounter& DiagnosticsCounter::counter(std::string_view name, CounterKind kind)
{
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    const auto found = all.counters.find(name);
    if (found != all.counters.end())
        return found->second;
    return all.counters.try_emplace(std::string(name), name, kind).first->second;
}

std::vector<CounterReading> readDiagnosticsCounters()
{
    Registry& all = registry();
    const std::lock_guard lock(all.mutex);
    std::vector<CounterReading> readings;
    readings.reserve(all.counters.size());
    for (const auto& [name, counter] : all.counters)
        readings.push_back({name, counter.value(), counter.kind()});
    return readings;
}

} // namespace Host
