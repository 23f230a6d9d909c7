#include "host/cooperativetaskmanager.h"

#include "taskslicesource.h"

#include "vetra/errorreporter.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace Host {

namespace {

std::chrono::nanoseconds steadyNow()
{
    return std::chrono::steady_clock::now().time_since_epoch();
}

} // namespace

CooperativeTaskManager::SliceSource::~SliceSource() = default;

/// Outlives the manager while a slice runs.
struct CooperativeTaskManager::State {
    TaskBudget::Clock clock;
    std::unique_ptr<SliceSource> source;
    ErrorReporter reporter;
    std::chrono::nanoseconds budget = kDefaultBudget;
    std::deque<std::shared_ptr<TaskSession>> sessions; ///< the next to run in front
    bool isRunning = false;

    void dropDone()
    {
        std::erase_if(sessions, [](const auto& session) { return session->isDone(); });
    }
    void report(TaskSession& session, std::exception_ptr error, const ErrorReporter& own) noexcept;
    void run(TaskSession& session, TaskBudget& slice);
    static void requestSlice(const std::shared_ptr<State>& state);
    static bool runSlice(const std::shared_ptr<State>& state, TaskBudget slice);
};

void CooperativeTaskManager::State::report(TaskSession& session, std::exception_ptr error,
                                           const ErrorReporter& own) noexcept
{
    const ErrorReporter chosen = own ? own : reporter; // a reporter may replace itself
    try {
        if (chosen)
            return chosen(error);
    } catch (...) {
        error = std::current_exception();
    }
    Vetra::reportError(error, ("Task of session " + session.name().substr(0, 200)).c_str());
}

void CooperativeTaskManager::State::run(TaskSession& session, TaskBudget& slice)
{
    try {
        session.runSlice(slice);
    } catch (...) {
        report(session, std::current_exception(), session.m_reporter);
    }
}

void CooperativeTaskManager::State::requestSlice(const std::shared_ptr<State>& state)
{
    if (!state->source || state->sessions.empty())
        return;
    state->source->request([weak = std::weak_ptr(state)] {
        if (const auto alive = weak.lock())
            runSlice(alive, TaskBudget(alive->clock, alive->clock() + alive->budget));
    });
}

bool CooperativeTaskManager::State::runSlice(const std::shared_ptr<State>& state, TaskBudget slice)
{
    if (state->isRunning)
        return !state->sessions.empty();
    state->isRunning = true;
    for (state->dropDone(); !state->sessions.empty(); state->dropDone()) {
        const auto next = state->sessions.front();
        std::rotate(state->sessions.begin(), state->sessions.begin() + 1, state->sessions.end());
        state->run(*next, slice);
        if (slice.isSpentAfterLongStep())
            break;
    }
    state->dropDone();
    state->isRunning = false;
    requestSlice(state);
    return !state->sessions.empty();
}

CooperativeTaskManager::CooperativeTaskManager()
    : CooperativeTaskManager(steadyNow, std::make_unique<TaskSliceSource>())
{}

CooperativeTaskManager::CooperativeTaskManager(TaskBudget::Clock clock,
                                               std::unique_ptr<SliceSource> source)
    : m_state(std::make_shared<State>())
{
    m_state->clock = clock ? std::move(clock) : TaskBudget::Clock(steadyNow);
    m_state->source = std::move(source);
}

CooperativeTaskManager::~CooperativeTaskManager()
{
    const auto sessions = std::exchange(m_state->sessions, {});
    for (const auto& session : sessions)
        session->cancel();
    m_state->source.reset();
}

CooperativeTaskManager& CooperativeTaskManager::instance()
{
    static CooperativeTaskManager manager;
    return manager;
}

void CooperativeTaskManager::setSliceBudget(std::chrono::nanoseconds budget)
{
    if (budget.count() > 0)
        m_state->budget = budget;
}

std::chrono::nanoseconds CooperativeTaskManager::sliceBudget() const noexcept
{
    return m_state->budget;
}

void CooperativeTaskManager::setErrorReporter(ErrorReporter reporter)
{
    m_state->reporter = std::move(reporter);
}

void CooperativeTaskManager::start(std::shared_ptr<TaskSession> session)
{
    auto& sessions = m_state->sessions;
    if (!session || session->isDone() || std::ranges::find(sessions, session) != sessions.end())
        return;
    sessions.push_back(std::move(session));
    State::requestSlice(m_state);
}

std::size_t CooperativeTaskManager::sessionCount() const noexcept
{
    return m_state->sessions.size();
}

bool CooperativeTaskManager::runSlice()
{
    return runSlice(TaskBudget(m_state->clock, m_state->clock() + m_state->budget));
}

bool CooperativeTaskManager::runSlice(TaskBudget budget)
{
    const auto state = m_state; // a task may destroy the manager
    return State::runSlice(state, budget);
}

void CooperativeTaskManager::runAll()
{
    const auto state = m_state;
    if (state->isRunning)
        return;
    while (State::runSlice(state, TaskBudget()))
        continue;
}

void CooperativeTaskManager::finish(std::shared_ptr<TaskSession> session)
{
    const auto state = m_state;
    if (!session || state->isRunning)
        return;
    state->isRunning = true;
    TaskBudget endless;
    while (!session->isDone())
        state->run(*session, endless);
    state->dropDone();
    state->isRunning = false;
}

} // namespace Host
