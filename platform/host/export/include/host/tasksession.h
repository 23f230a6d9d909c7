#pragma once

#include "host/host_export.h"
#include "host/task.h"

#include <deque>
#include <exception>
#include <functional>
#include <memory>
#include <string>

namespace Host {

/// Named work in tasks that a manager runs in slices. GUI thread.
///
/// The manager shares the session while it is under way, and the session its tasks, so that
/// everything may be let go at any time, also by a running task.
class HOST_EXPORT TaskSession {
public:
    explicit TaskSession(std::string name);
    TaskSession(const TaskSession&) = delete;
    TaskSession& operator=(const TaskSession&) = delete;
    virtual ~TaskSession();

    const std::string& name() const noexcept { return m_name; }
    /// Nothing more is run. A task that is running now returns into a session without tasks.
    void cancel();
    bool isCancelled() const noexcept { return m_isCancelled; }
    bool isDone() const noexcept { return m_isCancelled || isEmpty(); }
    /// Where an exception goes that leaves a task; the session is cancelled by then. Without one it
    /// goes to the manager's.
    void setErrorReporter(std::function<void(std::exception_ptr)> reporter);

    /// Runs tasks until the budget is spent or the session is done. Does nothing when called from
    /// inside one of its own tasks. What leaves a task is thrown on, after cancelling.
    void runSlice(TaskBudget& budget);

protected:
    virtual bool isEmpty() const = 0;
    /// The task to run now, and what becomes of it when it is done.
    virtual std::shared_ptr<Task> current() const = 0;
    virtual void currentIsDone() = 0;
    virtual void clear() = 0;

private:
    friend class CooperativeTaskManager;

    void runCurrent(TaskBudget& budget);

    std::string m_name;
    std::function<void(std::exception_ptr)> m_reporter;
    bool m_isCancelled = false;
    bool m_isRunning = false;
};

/// Runs its tasks one after another, in the order they were added.
class HOST_EXPORT OrderedTaskSession final : public TaskSession {
public:
    using TaskSession::TaskSession;

    /// Nothing once the session is cancelled, nor for null. Tasks may be added while it runs.
    void add(std::shared_ptr<Task> task);

protected:
    bool isEmpty() const override { return m_tasks.empty(); }
    std::shared_ptr<Task> current() const override { return m_tasks.front(); }
    void currentIsDone() override { m_tasks.pop_front(); }
    void clear() override { m_tasks.clear(); }

private:
    std::deque<std::shared_ptr<Task>> m_tasks;
};

} // namespace Host
