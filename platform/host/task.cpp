#include "host/task.h"

namespace Host {

Task::~Task() = default;

TaskBudget::TaskBudget(const Clock& clock, std::chrono::nanoseconds deadline)
    : m_clock(&clock), m_deadline(deadline), m_stepsLeft(kStride)
{}

TaskBudget TaskBudget::steps(std::int64_t count)
{
    TaskBudget budget;
    budget.m_stepsLeft = count;
    return budget;
}

bool TaskBudget::stepsAreSpent()
{
    if (!m_clock)
        return m_isSpent = true;
    m_stepsLeft = kStride;
    m_isSpent = m_isSpent || (*m_clock)() >= m_deadline;
    if (m_isSpent)
        m_stepsLeft = 0;
    return m_isSpent;
}

bool TaskBudget::isSpentAfterLongStep()
{
    if (m_clock)
        m_stepsLeft = 1;
    return isSpentAfterStep();
}

} // namespace Host
