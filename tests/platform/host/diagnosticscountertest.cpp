#include <gmock/gmock.h>

#include "host/diagnosticscounter.h"

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

namespace Host {
namespace {

TEST(DiagnosticsCounterTest, ThreadsShareOneCounterAName)
{
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t) {
        threads.emplace_back([] {
            for (int i = 0; i < 500; ++i) {
                DiagnosticsCounter::counter("Test:shared").increment();
                DiagnosticsCounter::counter("Test:other " + std::to_string(i)).decrement();
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(DiagnosticsCounter::counter("Test:shared").value(), 2000);
    EXPECT_EQ(DiagnosticsCounter::counter("Test:other 499").value(), -4);
}

TEST(DiagnosticsCounterTest, ReadingsAreSortedAndKeepOldReferencesValid)
{
    DiagnosticsCounter& last = DiagnosticsCounter::counter("Zebra");
    for (int i = 0; i < 100; ++i)
        DiagnosticsCounter::counter(std::string(1, static_cast<char>('A' + i % 26)));
    last.increment();
    DiagnosticsCounter unregistered("Zz");
    const auto readings = readDiagnosticsCounters();
    EXPECT_TRUE(std::is_sorted(readings.begin(), readings.end(),
                               [](const auto& a, const auto& b) { return a.name < b.name; }));
    EXPECT_EQ(readings.back().name, "Zebra");
    EXPECT_EQ(readings.back().value, 1);
}

} // namespace
} // namespace Host
