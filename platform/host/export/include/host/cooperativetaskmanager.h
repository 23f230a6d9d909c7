#pragma once

#include "host/host_export.h"
#include "host/tasksession.h"

#include <chrono>
#include <cstddef>
#include <exception>
#include <functional>
#include <memory>
#include <vector>

namespace Host {

/// Runs sessions on the GUI thread in slices, turn by turn, between the events of the host's loop.
///
/// Slices come from a source of idle turns (`SliceSource`), which lets input and repaints go first,
/// or from calls to `runSlice`. The manager may be destroyed at any time, also by a running task.
class HOST_EXPORT CooperativeTaskManager {
public:
    using ErrorReporter = std::function<void(std::exception_ptr)>;

    /// Calls back once in a later turn of the loop, after pending input, for each `request`.
    class HOST_EXPORT SliceSource {
    public:
        virtual ~SliceSource();
        /// While one is outstanding another changes nothing.
        virtual void request(std::function<void()> callback) = 0;
        virtual void cancel() = 0;
    };

    /// A slice ends with the step that is under way by then, so it lasts longer than this.
    static constexpr std::chrono::milliseconds kDefaultBudget{2};

    /// On the host's event loop; without an application object nothing runs by itself.
    CooperativeTaskManager();
    /// By hand: nothing runs but in `runSlice`, unless there is a source.
    explicit CooperativeTaskManager(TaskBudget::Clock clock,
                                    std::unique_ptr<SliceSource> source = nullptr);
    CooperativeTaskManager(const CooperativeTaskManager&) = delete;
    CooperativeTaskManager& operator=(const CooperativeTaskManager&) = delete;
    /// Cancels what is under way.
    ~CooperativeTaskManager();

    /// What the library's own work runs in.
    static CooperativeTaskManager& instance();

    /// Time a slice may take; not positive values are ignored.
    void setSliceBudget(std::chrono::nanoseconds budget);
    std::chrono::nanoseconds sliceBudget() const noexcept;
    /// Hears what a task throws whose session has no reporter; without one Vetra's hears it.
    void setErrorReporter(ErrorReporter reporter);

    /// Runs the session until it is done; a session already under way stays as it is.
    void start(std::shared_ptr<TaskSession> session);
    std::size_t sessionCount() const noexcept;

    /// One slice with the time budget, or with one of the caller's. Returns whether work is left.
    /// Never throws what a task throws. Does nothing when called from inside a task.
    bool runSlice();
    bool runSlice(TaskBudget budget);
    /// Slices without end of time until all is done.
    void runAll();
    /// The same for one session, started here or not; the others wait.
    void finish(std::shared_ptr<TaskSession> session);

private:
    struct State;
    std::shared_ptr<State> m_state;
};

} // namespace Host
