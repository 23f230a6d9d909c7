#include "nodes/crossings/pathintersectionsworker.h"

#include "nodes/crossings/accepttasks.h"
#include "nodes/crossings/crossingstate.h"
#include "nodes/crossings/linesweeptask.h"
#include "nodes/crossings/prunetask.h"
#include "nodes/crossings/publishtask.h"
#include "nodes/weakrefaccess.h"

#include "host/diagnosticscounter.h"

#include <utility>

namespace Tova2 {

namespace {

Host::DiagnosticsCounter& passes()
{
    static auto& counter =
        Host::DiagnosticsCounter::counter("Paths:Crossing passes", Host::CounterKind::Total);
    return counter;
}

} // namespace

std::optional<std::vector<PathIntersection>> PathIntersectionsUpdate::take(Item& item) const
{
    if (std::exchange(item.isTaken, true))
        return {};
    auto taken = std::move(item.crossings);
    if (item.hasGone && gone.contains(item.node))
        taken.clear();
    else if (item.hasGone)
        std::erase_if(taken, [this](const auto& one) { return gone.contains(one.other); });
    return taken;
}

bool CrossingResults::handOn(Host::TaskBudget&)
{
    return true;
}

void addPass(Host::OrderedTaskSession& session, const PathXWorkerTask::StatePtr& state,
             const std::weak_ptr<Host::OrderedTaskSession>& self, int round)
{
    passes().increment();
    session.add(std::make_shared<AcceptRemovedNodesTask>(state));
    session.add(std::make_shared<AcceptUpdatedNodesTask>(state));
    session.add(std::make_shared<LineSweepTask>(state));
    session.add(std::make_shared<PruneTask>(state));
    session.add(std::make_shared<PublishTask>(state, self, round));
}

PathIntersectionsWorker::PathIntersectionsWorker(CrossingSource& source, CrossingResults& results,
                                                 Host::CooperativeTaskManager& manager)
    : m_source(source), m_results(results), m_manager(manager)
{
    clear();
}

PathIntersectionsWorker::~PathIntersectionsWorker()
{
    abandon();
}

void PathIntersectionsWorker::abandon()
{
    if (m_state)
        m_state->source = nullptr;
    if (m_session)
        m_session->cancel();
}

void PathIntersectionsWorker::clear()
{
    abandon();
    m_session.reset();
    m_state = std::make_shared<State>();
    m_state->source = &m_source;
    m_state->results = &m_results;
    m_state->deathsSeen = WeakRefAccess::deathCount();
}

void PathIntersectionsWorker::nodeUpdated(const WeakRef& node)
{
    if (!node.isValid())
        return nodeRemoved(node);
    m_state->queueUpdate(node);
    start();
}

void PathIntersectionsWorker::nodeRemoved(const WeakRef& node)
{
    const auto found = m_state->slots.find(node);
    if (found == m_state->slots.end())
        return;
    m_state->queueRemoval(found->second);
    start();
}

void PathIntersectionsWorker::start()
{
    if (m_session && !m_session->isDone())
        return;
    m_session = std::make_shared<Host::OrderedTaskSession>("PathX");
    addPass(*m_session, m_state, m_session, 0);
    m_manager.start(m_session);
}

void PathIntersectionsWorker::finish()
{
    if (const auto session = m_session) // publishing may end the worker
        m_manager.finish(session);
}

bool PathIntersectionsWorker::allFound() const
{
    return m_state->isIdle();
}

PathIntersectionsUpdate::Item* PathIntersectionsWorker::find(PathIntersectionsUpdate& update,
                                                             const WeakRef& node) const
{
    const auto slot = m_state->slots.find(node);
    if (slot == m_state->slots.end() || slot->second >= update.itemOfSlot.size())
        return nullptr;
    const std::uint32_t place = update.itemOfSlot[slot->second];
    if (place == 0 || place > update.items.size() || // handed on
        update.items[place - 1].node != node)        // the slot is another's now
        return nullptr;
    return &update.items[place - 1];
}

std::size_t PathIntersectionsWorker::crossingCount() const
{
    return m_state->publishedCount;
}

} // namespace Tova2
