#pragma once

#include "host/host_export.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <limits>

namespace Host {

/// How long a task may go on in the slice it is in.
///
/// The clock is read at every `kStride`-th question only, so asking after each small step is cheap.
class HOST_EXPORT TaskBudget {
public:
    using Clock = std::function<std::chrono::nanoseconds()>;
    static constexpr int kStride = 16;

    /// Never spent.
    TaskBudget() = default;
    /// Spent at `deadline` of `clock`, which must outlive the budget.
    TaskBudget(const Clock& clock, std::chrono::nanoseconds deadline);
    /// Spent after so many steps, whatever they take: for tests that must not depend on time.
    static TaskBudget steps(std::int64_t count);

    /// Counts one step. Once true it stays true.
    bool isSpentAfterStep()
    {
        if (--m_stepsLeft > 0)
            return false;
        return stepsAreSpent();
    }
    /// The same after a step that may have taken as long as many: always looks at the clock.
    bool isSpentAfterLongStep();

private:
    bool stepsAreSpent();

    const Clock* m_clock = nullptr;
    std::chrono::nanoseconds m_deadline{};
    std::int64_t m_stepsLeft = std::numeric_limits<std::int64_t>::max();
    bool m_isSpent = false;
};

/// A piece of long work in steps. Keeps its own cursor; belongs to one session at a time.
class HOST_EXPORT Task {
public:
    Task() = default;
    Task(const Task&) = delete;
    Task& operator=(const Task&) = delete;
    virtual ~Task();

    /// Goes on where the last call stopped, at least by one step. True when the work is done; then
    /// it is not called again.
    virtual bool run(TaskBudget& budget) = 0;
};

} // namespace Host
