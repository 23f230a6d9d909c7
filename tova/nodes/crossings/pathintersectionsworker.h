#pragma once

#include "nodes/crossings/crossinginterfaces.h"

#include "host/cooperativetaskmanager.h"

#include <cstddef>
#include <memory>
#include <ostream>

namespace Tova2 {

/// Finds all crossings of horizontal with vertical pieces of the paths of one scene, in slices of
/// the task manager, and hands over what has changed as one update a pass.
///
/// A node's records are in order of the vertical piece's x, then of the horizontal piece's left
/// end; pieces that agree in these go by the order in which their nodes were first reported, then
/// by their places in their paths. The order does not depend on slices, nor on later changes.
///
/// A pass after few changes costs as much as what they touch; it gives what a whole pass would.
class PathIntersectionsWorker {
public:
    struct State;

    /// All three must outlive the worker.
    PathIntersectionsWorker(CrossingSource& source, CrossingResults& results,
                            Host::CooperativeTaskManager& manager);
    PathIntersectionsWorker(const PathIntersectionsWorker&) = delete;
    PathIntersectionsWorker& operator=(const PathIntersectionsWorker&) = delete;
    /// Nothing is published afterwards.
    ~PathIntersectionsWorker();

    /// The node is new, or its points, z-value, container, visibility or transform are different.
    /// Asks the source for it in the next pass; what a running pass publishes shows it as it was.
    void nodeUpdated(const WeakRef& node);
    /// The node has left the scene. What is published from now on has nothing of it.
    void nodeRemoved(const WeakRef& node);
    /// Forgets all nodes without publishing anything.
    void clear();
    /// Goes on until all is found and published. Does nothing when called from inside a task.
    void finish();

    /// Whether the last pass has been published and nothing has been reported since.
    bool allFound() const;
    /// Null unless the update has something for the node. Stays true until the next update.
    PathIntersectionsUpdate::Item* find(PathIntersectionsUpdate& update, const WeakRef& node) const;
    /// In what was published last; one for each two records.
    std::size_t crossingCount() const;

    void dumpChangeLevels(std::ostream& out) const;
    void dumpTables(std::ostream& out) const;

    const State& state() const { return *m_state; }
    State& state() { return *m_state; }

private:
    void start();
    void abandon();

    CrossingSource& m_source;
    CrossingResults& m_results;
    Host::CooperativeTaskManager& m_manager;
    std::shared_ptr<State> m_state;
    std::shared_ptr<Host::OrderedTaskSession> m_session;
};

} // namespace Tova2
