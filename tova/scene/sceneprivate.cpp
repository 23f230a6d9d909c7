#include "scene/sceneprivate.h"

#include "nodes/deferrederror.h"
#include "nodes/destruction.h"
#include "nodes/flagscope.h"
#include "nodes/nodeextras.h"
#include "nodes/values.h"
#include "scene/backgroundpainter.h"
#include "scene/crossingmanager.h"
#include "scene/nodecache.h"
#include "scene/scenecounters.h"
#include "scene/scenetools.h"

#include "tova/scene/scenechangetracker.h"
#include "vetra/qt.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tova2 {

namespace {

using Snapshot = std::vector<Vetra::Holder<NodeImpl>>;

/// The subtree as it is now, kept alive while a host is told of it.
Snapshot snapshotOf(NodeImpl& root)
{
    constexpr std::size_t kUsual = 1000;
    Snapshot nodes;
    nodes.reserve(kUsual);
    for (NodeImpl* const node : subtreeOf(root))
        nodes.emplace_back(node);
    return nodes;
}

class Announcement {
public:
    Announcement(std::vector<const NodeImpl*>& open, const NodeImpl& node) : m_open(open)
    {
        m_open.push_back(&node);
    }
    ~Announcement() { m_open.pop_back(); }
    Announcement(const Announcement&) = delete;
    Announcement& operator=(const Announcement&) = delete;

private:
    std::vector<const NodeImpl*>& m_open;
};

} // namespace

ScenePrivate::ScenePrivate()
    : m_displayList(m_editCounter)
    , m_tools(std::make_unique<SceneTools>(*this))
    , m_cache(std::make_unique<NodeCache>())
    , m_backgroundPainter(std::make_unique<BackgroundPainter>())
    , m_crossings(std::make_unique<CrossingManager>(*this))
{}

ScenePrivate::~ScenePrivate()
{
    Q_ASSERT(m_owners.empty() && m_nodeCount == 0);
}

void ScenePrivate::addOwner(Scene* owner)
{
    m_owners.push_back(owner);
    m_tools->setScene(scene());
}

void ScenePrivate::removeOwner(Scene* owner)
{
    std::erase(m_owners, owner);
    // At once: what tools do as they leave must not reach a scene that is being destroyed.
    m_tools->setScene(scene());
    if (m_owners.empty())
        close();
}

void ScenePrivate::close()
{
    m_tracker = nullptr;
    m_repaintSinks.clear();
    DeferredError error;
    error.run([this] { m_tools->close(); });
    error.run([this] { removeAllNodes(); });
    error.rethrow();
}

void ScenePrivate::addNode(NodeImpl& node)
{
    if (has(node))
        return;
    const DestructionDelay delay;
    const Vetra::Holder<NodeImpl> keep(&node);
    DeferredError error;
    reportAdded(node, error);
    // Meanwhile a tracker may have added it, or dropped the scene.
    if (has(node) || m_owners.empty())
        return error.rethrow();
    ++m_changeCounter;
    if (SceneLink* const other = node.sceneLink())
        error.run([&] { other->removeNode(node); });
    else if (!node.hasBeenInScene() && !settings.creationStyles.empty())
        error.run([&] { node.setDrawStyle(settings.creationStyles.back()); });
    if (!node.sceneLink() && !m_owners.empty())
        enter(node);
    error.rethrow();
}

bool ScenePrivate::isAnnounced(const NodeImpl& node) const
{
    return std::any_of(m_announced.begin(), m_announced.end(), [&](const NodeImpl* root) {
        return root == &node || root->isAncestorOfNode(node);
    });
}

// A tracker that adds or takes out itself what it is being told of does so without being told
// again, for ever.
void ScenePrivate::reportAdded(NodeImpl& node, DeferredError& error)
{
    if (!tracker() || isAnnounced(node))
        return;
    const Announcement announcement(m_announced, node);
    for (const auto& added : snapshotOf(node)) {
        if (tracker())
            error.run([&] { m_tracker->nodeAdded(added->handle()); });
    }
}

void ScenePrivate::reportRemoved(NodeImpl& node, DeferredError& error)
{
    if (!tracker() || isAnnounced(node))
        return;
    const Announcement announcement(m_announced, node);
    for (const auto& removed : snapshotOf(node)) {
        if (tracker())
            error.run([&] { m_tracker->nodeRemoved(removed->handle()); });
    }
}

void ScenePrivate::enter(NodeImpl& node)
{
    // A node that hangs under another outside any scene comes in alone.
    if (node.parentNode())
        node.setParent(nullptr);
    node.setZValue(widenZ(+1)); // cheaper while the toolkit need not sort by it
    const auto subtree = subtreeOf(node);
    m_toolkit.addSubtree(node, subtree);
    for (NodeImpl* const entered : subtree) {
        entered->setSceneLink(this);
        // Values that came along count as handed out: the top has to be above them too.
        m_lowestZ = std::min(m_lowestZ, entered->zValue());
        m_highestZ = std::max(m_highestZ, entered->zValue());
    }
    for (NodeImpl* const entered : subtree) {
        m_crossings->nodeEntered(*entered);
        noteHitTester(*entered);
    }
    m_nodeCount += static_cast<unsigned>(subtree.size());
    addTopLevel(node);
    node.setMembership(true);
    m_displayList.addOnTop(node);
    m_bounds.reset();
    ++m_editCounter;
    node.sceneRecord().isCounted = true;
    SceneCounters::nodesInScenes().increment();
    repaintAnew(node, Extent::WithChildren);
}

void ScenePrivate::noteHitTester(NodeImpl& node)
{
    if (node.hasCustomHitTest() && node.extras()->hitTester != Node::EmptyHitTester::instance())
        m_hitTested.insert(&node);
    else
        m_hitTested.erase(&node);
}

void ScenePrivate::removeNode(NodeImpl& node)
{
    if (!has(node))
        return;
    const DestructionDelay delay;
    const Vetra::Holder<NodeImpl> keep(&node);
    DeferredError error;
    reportRemoved(node, error);
    if (has(node)) {
        const Vetra::Holder<NodeImpl> parent(node.parentNode());
        leave(node);
        m_tools->tellDeparted(error);
        if (parent)
            error.run([&] { parent->tellFollowers(ChangeLevel::Children); });
    }
    error.rethrow();
}

void ScenePrivate::leave(NodeImpl& node)
{
    const auto subtree = subtreeOf(node);
    repaintKnown(node, Extent::WithChildren);
    removeTopLevel(node);
    for (NodeImpl* const left : subtree) {
        // One for each addition: some may have been added by themselves and parented since.
        if (left->sceneRecord().isCounted)
            SceneCounters::nodesInScenes().decrement();
        if (left->sceneRecord().isUnsettled)
            std::erase(m_unsettled, left);
        m_displayList.strikeOut(*left);
        m_cache->drop(*left);
        m_crossings->nodeLeft(*left);
        m_hitTested.erase(left);
        left->setSceneLink(nullptr);
    }
    m_toolkit.removeSubtree(node, subtree);
    m_nodeCount -= static_cast<unsigned>(subtree.size());
    ++m_changeCounter;
    ++m_editCounter;
    m_bounds.reset();
    node.setMembership(false);
    m_tools->delivery().noteLeft();
}

void ScenePrivate::removeAllNodes()
{
    const DestructionDelay delay;
    DeferredError error;
    const auto removeThoseHere = [&] {
        // In the order of their coming, in which the toolkit finds each at the front of its lists.
        for (NodeImpl* const node : topLevelNodes())
            error.run([&] { removeNode(*node); });
    };
    removeThoseHere();
    // What a tracker has added meanwhile goes without another word, or it might go on for ever.
    const FlagScope off(m_isTrackerOff);
    while (m_nodeCount > 0)
        removeThoseHere();
    error.rethrow();
}

void ScenePrivate::addTopLevel(NodeImpl& node)
{
    node.sceneRecord().topLevelIndex = static_cast<std::uint32_t>(m_topLevels.size());
    m_topLevels.push_back(&node);
}

void ScenePrivate::removeTopLevel(NodeImpl& node) noexcept
{
    auto& index = node.sceneRecord().topLevelIndex;
    if (index == SceneRecord::kNone)
        return;
    m_topLevels[index] = nullptr;
    index = SceneRecord::kNone;
    // Close the gaps when they are half of all: constant time a removal in the long run.
    if (++m_topLevelsLeft * 2 <= m_topLevels.size())
        return;
    std::erase(m_topLevels, nullptr);
    m_topLevelsLeft = 0;
    for (std::size_t i = 0; i < m_topLevels.size(); ++i)
        m_topLevels[i]->sceneRecord().topLevelIndex = static_cast<std::uint32_t>(i);
}

std::vector<NodeImpl*> ScenePrivate::topLevelNodes() const
{
    std::vector<NodeImpl*> nodes;
    nodes.reserve(m_topLevels.size() - m_topLevelsLeft);
    std::copy_if(m_topLevels.begin(), m_topLevels.end(), std::back_inserter(nodes),
                 [](const NodeImpl* node) { return node != nullptr; });
    return nodes;
}

void ScenePrivate::restack()
{
    if (!m_displayList.isOrderStale())
        return m_displayList.restack({});
    auto nodes = topLevelNodes();
    const auto isBelow = [](const NodeImpl* a, const NodeImpl* b) { return stacksBelow(*a, *b); };
    if (!std::is_sorted(nodes.begin(), nodes.end(), isBelow))
        std::sort(nodes.begin(), nodes.end(), isBelow);
    m_displayList.restack(nodes);
}

const DisplayList& ScenePrivate::displayList()
{
    // A host that is asked for a node's bounds may ask back; it gets what is known.
    if (m_isAsking)
        return m_displayList;
    const DestructionDelay delay;
    const FlagScope asking(m_isAsking);
    followAnnounced();
    restack();
    m_displayList.refreshBoxes();
    return m_displayList;
}

namespace {

void include(const Box& box, Box& all)
{
    if (isFinite(box.rect())) // huge transforms of huge rectangles overflow
        all.unite(box);
}

template <class Visit>
void forEachCounted(const EntryBlocks& entries, std::uint32_t block, Visit visit)
{
    for (auto slot = EntryBlocks::first(block); slot < entries.end(block); ++slot) {
        if (!(entries.flags(slot) & (DisplayList::Hidden | DisplayList::Uncounted)))
            visit(slot);
    }
}

/// Of the nodes whose boxes the list knows. Once the blocks that reach farthest are in, most others
/// lie within and are passed by.
Box knownBounds(const EntryBlocks& entries)
{
    const auto blocks = entries.order();
    Box all;
    if (blocks.empty())
        return all;
    const auto includeBlock = [&](std::uint32_t block) {
        forEachCounted(entries, block, [&](auto slot) { include(entries.box(slot), all); });
    };
    const auto includeFarthest = [&](auto edge) {
        const auto isNearer = [&](std::uint32_t a, std::uint32_t b) {
            return edge(entries.commonBox(a)) < edge(entries.commonBox(b));
        };
        includeBlock(*std::max_element(blocks.begin(), blocks.end(), isNearer));
    };
    includeFarthest([](const Box& b) { return -b.left; });
    includeFarthest([](const Box& b) { return -b.top; });
    includeFarthest([](const Box& b) { return b.right; });
    includeFarthest([](const Box& b) { return b.bottom; });
    for (const auto block : blocks) {
        if (!all.contains(entries.commonBox(block)))
            includeBlock(block);
    }
    return all;
}

/// Those of which the list knows only that they may be anywhere.
std::vector<NodeImpl*> unknownNodes(const EntryBlocks& entries)
{
    std::vector<NodeImpl*> nodes;
    for (const auto block : entries.order()) {
        const Box& common = entries.commonBox(block);
        if (std::isfinite(common.left) || common.isNowhere())
            continue;
        forEachCounted(entries, block, [&](auto slot) {
            if (!std::isfinite(entries.box(slot).left))
                nodes.push_back(entries.node(slot));
        });
    }
    return nodes;
}

} // namespace

QRectF ScenePrivate::bounds()
{
    const DestructionDelay delay;
    followAnnounced();
    if (m_bounds)
        return *m_bounds;
    const auto edits = m_editCounter;
    Box all = knownBounds(displayList().entries());
    for (NodeImpl* const node : unknownNodes(m_displayList.entries())) {
        if (has(*node) && node->isVisibleToScene())
            include(boxOf(*node), all);
    }
    const QRectF bounds = all.isNowhere() || !isFinite(all.rect()) ? QRectF() : all.rect();
    // Whoever was asked may have edited what had been looked at.
    if (!m_isAsking && m_editCounter == edits)
        m_bounds = bounds;
    return bounds;
}

Box ScenePrivate::boxOf(const NodeImpl& node)
{
    if (m_isAsking)
        return Box::everywhere();
    const FlagScope asking(m_isAsking);
    return boxAtUnitScale(node, node.nodeToDevice({}));
}

QPointF ScenePrivate::pixelAligned(const QPointF& point) const
{
    const QTransform view = m_paint ? m_paint->view : QTransform();
    bool isInvertible = false;
    const QTransform toScene = view.inverted(&isInvertible);
    if (!isInvertible)
        return point;
    const QPointF device = view.map(point);
    return toScene.map(QPointF(nearestPixel(device.x()), nearestPixel(device.y())));
}

} // namespace Tova2
