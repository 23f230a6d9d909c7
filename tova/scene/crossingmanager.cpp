#include "scene/crossingmanager.h"

#include "nodes/crossings/pathintersectionsdecorator.h"
#include "nodes/linearpathnodeimpl.h"
#include "nodes/nodeextras.h"
#include "scene/sceneprivate.h"

#include "tova/nodes/crossings/pathintersectionsenabledtag.h"
#include "vetra/qt.h"

#include <any>
#include <utility>

namespace Tova2 {

namespace {

bool isOptedOut(const NodeImpl& node)
{
    const NodeExtras* const extras = node.extras();
    if (!extras)
        return false;
    const auto tag = extras->tags.find(pathIntersectionsEnabledTag());
    if (tag == extras->tags.end())
        return false;
    const bool* const value = std::any_cast<bool>(&tag->second);
    return value && !*value;
}

double containerZ(const NodeImpl& node)
{
    const NodeImpl* const parent = node.parentNode();
    return parent && parent->isa("Tova2.ContainerNode") ? parent->zValue() : 0.0;
}

/// Whether the place of crossings, or the order of those who cross, can be another.
bool movesCrossings(ChangeLevel level)
{
    return level != ChangeLevel::Appearance && level != ChangeLevel::Reach;
}

} // namespace

CrossingManager::CrossingManager(ScenePrivate& scene)
    : m_scene(scene), m_worker(*this, *this, Host::CooperativeTaskManager::instance())
{
    useDecorator("grad_pin");
}

CrossingManager::~CrossingManager() = default;

template <class Step>
void CrossingManager::forEachPath(Step step)
{
    for (NodeImpl* const top : m_scene.topLevelNodes()) {
        for (NodeImpl* const node : subtreeOf(*top)) {
            if (LinearPathNodeImpl* const path = node->asLinearPath())
                step(*path);
        }
    }
}

void CrossingManager::nodeEntered(NodeImpl& node)
{
    if (!node.asLinearPath())
        return;
    ++m_pathCount;
    queue(node);
}

void CrossingManager::nodeLeft(NodeImpl& node)
{
    LinearPathNodeImpl* const path = node.asLinearPath();
    if (!path)
        return;
    --m_pathCount;
    std::vector<PathIntersection> late;
    takeCrossings(node, late);
    path->setCrossings({});
    if (m_isEnabled)
        m_worker.nodeRemoved(WeakRef(&node));
}

void CrossingManager::nodeChanged(NodeImpl& node, ChangeLevel level)
{
    if (m_pathCount == 0 || !m_isEnabled || !movesCrossings(level))
        return;
    // What a container does, its paths do.
    const bool reachesChildren = level != ChangeLevel::Geometry && !node.childItems().isEmpty();
    if (!reachesChildren) {
        pathChanged(node, level);
        return;
    }
    for (NodeImpl* const below : subtreeOf(node))
        pathChanged(*below, level);
}

// Nothing else is found when a line only becomes wider, but marks of others keep clear of it.
void CrossingManager::pathChanged(NodeImpl& node, ChangeLevel level)
{
    LinearPathNodeImpl* const path = node.asLinearPath();
    if (!path)
        return;
    if (path->takeCrossingsStale() || level != ChangeLevel::Geometry)
        queue(node);
    if (!path->takeLineWidthChange())
        return;
    for (const PathIntersection& crossing : path->crossings()) {
        NodeImpl* const other = crossing.other.getImpl();
        if (LinearPathNodeImpl* const crossed = other ? other->asLinearPath() : nullptr) {
            crossed->dropCrossingMarks();
            m_scene.repaintNode(*crossed);
        }
    }
}

void CrossingManager::queue(NodeImpl& node)
{
    if (m_isEnabled && node.asLinearPath())
        m_worker.nodeUpdated(WeakRef(&node));
}

void CrossingManager::queueAll()
{
    forEachPath([this](LinearPathNodeImpl& path) { queue(path); });
}

void CrossingManager::clearAll()
{
    m_worker.clear();
    m_update = {};
    forEachPath([](LinearPathNodeImpl& path) { path.setCrossings({}); });
}

void CrossingManager::repaintAll()
{
    forEachPath([this](LinearPathNodeImpl& path) {
        path.dropCrossingMarks();
        m_scene.repaintNode(path);
    });
}

void CrossingManager::setEnabled(bool enabled)
{
    if (enabled == m_isEnabled)
        return;
    m_isEnabled = enabled;
    if (enabled)
        queueAll();
    else
        clearAll();
    repaintAll();
}

void CrossingManager::useDecorator(const std::string& name)
{
    const bool hadOne = m_decorator != nullptr;
    m_decorator = makePathIntersectionsDecorator(name);
    m_decoratorName = m_decorator ? name : std::string();
    if (m_decorator || hadOne)
        repaintAll();
}

const PathIntersectionsDecorator* CrossingManager::decorator() const
{
    return m_isEnabled ? m_decorator.get() : nullptr;
}

void CrossingManager::dump(std::ostream& out) const
{
    m_worker.dumpChangeLevels(out);
    m_worker.dumpTables(out);
}

bool CrossingManager::describe(const WeakRef& ref, CrossingPath& path)
{
    NodeImpl* const node = ref.getImpl();
    const LinearPathNodeImpl* const linear = node ? node->asLinearPath() : nullptr;
    if (!linear || !m_scene.has(*node) || !node->isVisibleToScene() || isOptedOut(*node))
        return false;
    const QTransform toScene = node->sceneTransform();
    path.points.clear();
    for (const QPointF& point : linear->points())
        path.points.push_back(Vetra::fromQt(toScene.map(point)));
    path.parentZ = containerZ(*node);
    path.z = node->zValue();
    return true;
}

void CrossingManager::crossingsFound(PathIntersectionsUpdate&& update)
{
    m_update = std::move(update);
}

bool CrossingManager::handOn(Host::TaskBudget& budget)
{
    while (!m_update.items.empty()) {
        handOnLast();
        if (budget.isSpentAfterLongStep()) // its records may be many
            return false;
    }
    m_update = {};
    return true;
}

void CrossingManager::handOnLast()
{
    auto& item = m_update.items.back();
    const Node held = item.node.getNode();
    auto crossings = m_update.take(item);
    const WeakRef ref = std::move(item.node);
    m_update.items.pop_back();
    NodeImpl* const node = ref.getImpl();
    LinearPathNodeImpl* const path = node ? node->asLinearPath() : nullptr;
    if (!path || !m_scene.has(*node))
        return;
    if (crossings)
        path->setCrossings(std::move(*crossings));
    m_scene.repaintNode(*node);
}

bool CrossingManager::takeCrossings(const NodeImpl& node, std::vector<PathIntersection>& crossings)
{
    if (m_update.items.empty() || !node.extras())
        return false;
    auto* const item = m_worker.find(m_update, node.extras()->self);
    auto taken = item ? m_update.take(*item) : std::nullopt;
    if (!taken)
        return false;
    crossings = std::move(*taken);
    return true;
}

} // namespace Tova2
