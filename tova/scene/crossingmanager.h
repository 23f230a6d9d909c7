#pragma once

#include "nodes/changelevel.h"
#include "nodes/crossings/pathintersectionsworker.h"

#include <cstddef>
#include <memory>
#include <string>

namespace Tova2 {

class NodeImpl;
class PathIntersectionsDecorator;
class ScenePrivate;

/// Keeps the worker of a scene told of its linear paths, hands what it finds to them, and holds the
/// decorator that draws it.
class CrossingManager final : private CrossingSource, private CrossingResults {
public:
    explicit CrossingManager(ScenePrivate& scene);
    ~CrossingManager() override;

    void nodeEntered(NodeImpl& node);
    void nodeLeft(NodeImpl& node);
    void nodeChanged(NodeImpl& node, ChangeLevel level);

    bool isEnabled() const { return m_isEnabled; }
    void setEnabled(bool enabled);
    /// An unknown name turns decoration off.
    void useDecorator(const std::string& name);
    const std::string& decoratorName() const { return m_decoratorName; }
    /// Null while crossings are off or nothing is to be drawn at them.
    const PathIntersectionsDecorator* decorator() const;

    /// As `SceneLink::takeCrossings`.
    bool takeCrossings(const NodeImpl& node, std::vector<PathIntersection>& crossings);

    void findAll() { m_worker.finish(); }
    void dump(std::ostream& out) const;
    bool allFound() const { return m_worker.allFound(); }
    std::size_t crossingCount() const { return m_worker.crossingCount(); }

private:
    bool describe(const WeakRef& node, CrossingPath& path) override;
    void crossingsFound(PathIntersectionsUpdate&& update) override;
    bool handOn(Host::TaskBudget& budget) override;
    void handOnLast();

    void pathChanged(NodeImpl& node, ChangeLevel level);
    void queue(NodeImpl& node);
    void queueAll();
    void clearAll();
    void repaintAll();
    template <class Step>
    void forEachPath(Step step);

    ScenePrivate& m_scene;
    PathIntersectionsWorker m_worker;
    /// What has been found; paths get theirs one by one, or when they ask, so that all of it is
    /// there at once.
    PathIntersectionsUpdate m_update;
    std::unique_ptr<PathIntersectionsDecorator> m_decorator;
    std::string m_decoratorName;
    std::size_t m_pathCount = 0; ///< in the scene; while it is 0 no edit costs anything here
    bool m_isEnabled = true;
};

} // namespace Tova2
