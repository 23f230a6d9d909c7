#include "scene/crossingmanager.h"
#include "scene/nodecache.h"
#include "scene/sceneprivate.h"

#include "tova/scene/scenechangetracker.h"

#include <QMetaObject>

#include <algorithm>
#include <utility>

namespace Tova2 {

namespace {

bool reachesChildren(ChangeLevel level)
{
    return level == ChangeLevel::Placement || level == ChangeLevel::Presence;
}

} // namespace

void ScenePrivate::noteChange(NodeImpl& node, ChangeLevel level) noexcept
{
    ++m_editCounter;
    m_cache->noteChange(node, level);
    m_crossings->nodeChanged(node, level);
    if (level == ChangeLevel::Appearance) {
        if (isWatched())
            requestRepaint(m_displayList.computeBox(node));
        return;
    }
    m_bounds.reset();
    if (level == ChangeLevel::Announced) {
        noteAnnounced(node);
        return;
    }
    if (level == ChangeLevel::Stacking) {
        m_displayList.markOrderStale();
        if (isWatched())
            requestRepaint(computeBoxOfSubtree(node));
        return;
    }
    const bool reachesSubtree = reachesChildren(level) && !node.childItems().isEmpty();
    if (!isWatched()) {
        if (reachesSubtree)
            m_displayList.markSubtreeStale(node);
        else
            m_displayList.markStale(node);
        return;
    }
    requestRepaint(reachesSubtree ? knownBoxOfSubtree(node) : m_displayList.knownBox(node));
    requestRepaint(reachesSubtree ? computeBoxOfSubtree(node) : m_displayList.computeBox(node));
}

// Told before the change: the new bounds are taken anew at each use, until the turn of the event
// loop is over.
void ScenePrivate::noteAnnounced(NodeImpl& node)
{
    if (isWatched())
        requestRepaint(m_displayList.knownBox(node));
    m_displayList.markStale(node);
    if (m_unsettled.empty())
        QMetaObject::invokeMethod(
            &m_nextTurn, [this] { settleAnnounced(); }, Qt::QueuedConnection);
    if (!std::exchange(node.sceneRecord().isUnsettled, true))
        m_unsettled.push_back(&node);
}

void ScenePrivate::followAnnounced()
{
    for (NodeImpl* const node : m_unsettled) {
        m_displayList.markStale(*node);
        m_bounds.reset();
    }
}

void ScenePrivate::settleAnnounced()
{
    followAnnounced();
    const auto announced = std::exchange(m_unsettled, {});
    for (NodeImpl* const node : announced) {
        node->sceneRecord().isUnsettled = false;
        if (isWatched())
            requestRepaint(m_displayList.computeBox(*node));
    }
}

void ScenePrivate::noteReparenting(NodeImpl& node) noexcept
{
    ++m_editCounter;
    if (isWatched())
        requestRepaint(knownBoxOfSubtree(node));
    removeTopLevel(node);
}

void ScenePrivate::noteReparented(NodeImpl& node) noexcept
{
    if (!node.parentNode())
        addTopLevel(node);
    m_displayList.markOrderStale();
    m_displayList.markSubtreeStale(node);
    m_crossings->nodeChanged(node, ChangeLevel::Placement);
    m_bounds.reset();
    if (isWatched())
        requestRepaint(computeBoxOfSubtree(node));
}

void ScenePrivate::nodeChanged(NodeImpl& node, ChangeLevel)
{
    if (m_tracker)
        m_tracker->nodeChanged(node.handle());
}

// What edits mark as stale differs by whether anybody watches: none of it may be left over from
// before.
void ScenePrivate::addRepaintSink(RepaintSink* sink)
{
    displayList();
    m_repaintSinks.push_back(sink);
}

void ScenePrivate::removeRepaintSink(RepaintSink* sink)
{
    displayList();
    std::erase(m_repaintSinks, sink);
}

bool ScenePrivate::takeCrossings(const NodeImpl& node, std::vector<PathIntersection>& crossings)
{
    return m_crossings->takeCrossings(node, crossings);
}

const PathIntersectionsDecorator* ScenePrivate::crossingDecorator() const
{
    return m_crossings->decorator();
}

void ScenePrivate::repaintNode(NodeImpl& node)
{
    ++m_editCounter;
    m_cache->drop(node);
    node.forgetEffectPictures();
    // Also when nobody watches: marks may reach farther than before.
    if (isWatched())
        requestRepaint(m_displayList.computeBox(node));
    else
        m_displayList.markStale(node);
}

void ScenePrivate::requestFullRepaint()
{
    // What the scene says about all nodes is in their pictures.
    ++m_editCounter;
    m_cache->clear();
    if (isWatched())
        requestRepaint(Box::everywhere());
}

Box ScenePrivate::knownBoxOfSubtree(NodeImpl& node)
{
    Box all;
    for (const NodeImpl* const below : subtreeOf(node))
        all.unite(m_displayList.knownBox(*below));
    return all;
}

Box ScenePrivate::computeBoxOfSubtree(NodeImpl& node)
{
    Box all;
    for (NodeImpl* const below : subtreeOf(node))
        all.unite(m_displayList.computeBox(*below));
    return all;
}

void ScenePrivate::requestRepaint(const Box& box)
{
    if (box.isNowhere())
        return;
    const DirtyArea area{std::isfinite(box.left) ? box.rect() : QRectF(), m_displayList.reach()};
    const auto sinks = m_repaintSinks;
    for (RepaintSink* const sink : sinks)
        sink->repaintRequested(area);
}

} // namespace Tova2
