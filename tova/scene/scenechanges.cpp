#include "nodes/destruction.h"
#include "nodes/flagscope.h"
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
    if (level == ChangeLevel::Renumbered)
        return;
    m_cache->noteChange(node, level);
    m_crossings->nodeChanged(node, level);
    if (level == ChangeLevel::Appearance)
        return repaintAnew(node, Extent::Alone);
    m_bounds.reset();
    if (level == ChangeLevel::Announced) {
        noteAnnounced(node);
        return;
    }
    if (level == ChangeLevel::Stacking) {
        m_displayList.markMoved(node);
        return repaintAnew(node, Extent::WithChildren);
    }
    const bool reachesSubtree = reachesChildren(level) && !node.childItems().isEmpty();
    const auto extent = reachesSubtree ? Extent::WithChildren : Extent::Alone;
    if (isWatched())
        repaintKnown(node, extent);
    if (!isWatched() || m_isAsking) {
        if (reachesSubtree)
            m_displayList.markSubtreeStale(node);
        else if (level != ChangeLevel::Stacking)
            m_displayList.markStale(node);
    }
    repaintAnew(node, extent);
}

// Told before the change: the new bounds are taken anew at each use, until the turn of the event
// loop is over.
void ScenePrivate::noteAnnounced(NodeImpl& node)
{
    repaintKnown(node, Extent::Alone);
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
    const DestructionDelay delay;
    followAnnounced();
    const auto announced = std::exchange(m_unsettled, {});
    for (NodeImpl* const node : announced)
        node->sceneRecord().isUnsettled = false;
    for (NodeImpl* const node : announced) {
        if (has(*node))
            repaintAnew(*node, Extent::Alone);
    }
}

void ScenePrivate::noteReparenting(NodeImpl& node) noexcept
{
    ++m_editCounter;
    repaintKnown(node, Extent::WithChildren);
    removeTopLevel(node);
}

void ScenePrivate::noteReparented(NodeImpl& node) noexcept
{
    if (!node.parentNode())
        addTopLevel(node);
    m_displayList.markMoved(node);
    m_displayList.markSubtreeStale(node);
    m_crossings->nodeChanged(node, ChangeLevel::Placement);
    m_bounds.reset();
    repaintAnew(node, Extent::WithChildren);
}

void ScenePrivate::nodeChanged(NodeImpl& node, ChangeLevel)
{
    if (tracker())
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
    if (!isWatched() || m_isAsking)
        m_displayList.markStale(node);
    repaintAnew(node, Extent::Alone);
}

void ScenePrivate::requestFullRepaint()
{
    // What the scene says about all nodes is in their pictures.
    ++m_editCounter;
    m_cache->clear();
    if (isWatched())
        requestRepaint(Box::everywhere());
}

/// Where the nodes were when they were last looked at.
void ScenePrivate::repaintKnown(NodeImpl& node, Extent extent)
{
    if (!isWatched())
        return;
    if (extent == Extent::Alone)
        return requestRepaint(m_displayList.knownBox(node));
    Box all;
    for (const NodeImpl* const below : subtreeOf(node))
        all.unite(m_displayList.knownBox(*below));
    requestRepaint(all);
}

// Where they are now, for which they are asked, and with them hosts. What a host edits meanwhile is
// marked only and looked at by the next query or paint, which is to paint everything.
void ScenePrivate::repaintAnew(NodeImpl& node, Extent extent)
{
    if (!isWatched())
        return;
    if (m_isAsking)
        return requestRepaint(Box::everywhere());
    const FlagScope asking(m_isAsking);
    requestRepaint(
        m_displayList.computeBox(extent == Extent::Alone ? Subtree{&node} : subtreeOf(node)));
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
