#include "host/tasksession.h"

#include <utility>

namespace Host {

TaskSession::TaskSession(std::string name) : m_name(std::move(name)) {}

TaskSession::~TaskSession() = default;

void TaskSession::cancel()
{
    m_isCancelled = true;
    clear();
}

void TaskSession::setErrorReporter(std::function<void(std::exception_ptr)> reporter)
{
    m_reporter = std::move(reporter);
}

void TaskSession::runSlice(TaskBudget& budget)
{
    if (m_isRunning)
        return;
    while (!isDone()) {
        runCurrent(budget);
        if (budget.isSpentAfterLongStep())
            return;
    }
}

void TaskSession::runCurrent(TaskBudget& budget)
{
    const auto task = current(); // the task may cancel the session
    m_isRunning = true;
    try {
        const bool isTaskDone = task->run(budget);
        m_isRunning = false;
        if (isTaskDone && !m_isCancelled)
            currentIsDone();
    } catch (...) {
        m_isRunning = false;
        cancel();
        throw;
    }
}

void OrderedTaskSession::add(std::shared_ptr<Task> task)
{
    if (task && !isCancelled())
        m_tasks.push_back(std::move(task));
}

} // namespace Host
