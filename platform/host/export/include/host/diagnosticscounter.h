#pragma once

#include "host/host_export.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Host {

enum class CounterKind {
    Live, ///< how many there are now; 0 once all are gone
    Total ///< how many there have been; never falls
};

/// A figure of the running program under a name such as "Node:Node raw instance count". Any thread.
///
/// A counter is made at the first mention of its name, starts at 0 and lives as long as the
/// process, even through the destruction of statics. Its kind tells readers what to expect of it.
/// Looking it up takes a lock, so keep the reference.
class HOST_EXPORT DiagnosticsCounter {
public:
    /// The first mention decides on the kind.
    static DiagnosticsCounter& counter(std::string_view name, CounterKind kind = CounterKind::Live);

    /// Unregistered: seen by no snapshot.
    explicit DiagnosticsCounter(std::string_view name, CounterKind kind = CounterKind::Live);
    DiagnosticsCounter(const DiagnosticsCounter&) = delete;
    DiagnosticsCounter& operator=(const DiagnosticsCounter&) = delete;

    // Relaxed: a figure to read, not a signal between threads.
    void increment() noexcept { m_value.fetch_add(1, std::memory_order_relaxed); }
    void decrement() noexcept { m_value.fetch_sub(1, std::memory_order_relaxed); }
    std::int64_t value() const noexcept { return m_value.load(std::memory_order_relaxed); }
    const std::string& name() const noexcept { return m_name; }
    CounterKind kind() const noexcept { return m_kind; }

private:
    const std::string m_name;
    const CounterKind m_kind;
    std::atomic<std::int64_t> m_value{0};
};

/// What a counter showed when all were read.
struct CounterReading {
    std::string name;
    std::int64_t value = 0;
    CounterKind kind = CounterKind::Live;
};

/// Every registered counter, sorted by name.
HOST_EXPORT std::vector<CounterReading> readDiagnosticsCounters();

} // namespace Host
