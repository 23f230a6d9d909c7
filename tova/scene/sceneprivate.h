#pragma once

#include "nodes/nodechangesink.h"
#include "nodes/nodeimpl.h"
#include "nodes/scenelink.h"
#include "scene/displaylist.h"
#include "scene/repaintsink.h"
#include "scene/scenesettings.h"
#include "scene/toolkitscene.h"

#include <QRectF>
#include <QTransform>

#include <optional>
#include <unordered_set>
#include <vector>

namespace Tova2 {

class BackgroundPainter;
class CrossingManager;
class DeferredError;
class NodeCache;
class Scene;
class SceneChangeTracker;
class SceneTools;

/// The content that one or more `Scene` handles own. Nodes reach it as their `SceneLink`.
class ScenePrivate final : public SceneLink, private NodeChangeSink {
public:
    ScenePrivate();
    ~ScenePrivate();

    // Owners, the first of which is who nodes name as their scene
    void addOwner(Scene* owner);
    /// With the last one the content is taken down, and takes no more nodes.
    void removeOwner(Scene* owner);
    Scene* scene() noexcept override { return m_owners.empty() ? nullptr : m_owners.front(); }

    /// The tool stack with all that input goes through.
    SceneTools& tools() { return *m_tools; }

    // Membership
    void addNode(NodeImpl& node) override;
    void removeNode(NodeImpl& node) override;
    /// Takes every node out, reporting each to the tracker.
    void removeAllNodes();
    /// A functor came to a node in this scene, or left it.
    void noteHitTester(NodeImpl& node) override;
    /// Nodes with functors of their own, which may be hit beyond their bounds.
    const std::unordered_set<NodeImpl*>& nodesWithHitTester() const { return m_hitTested; }
    bool has(const NodeImpl& node) const { return node.sceneLink() == this; }
    unsigned nodeCount() const { return m_nodeCount; }
    unsigned changeCounter() const { return m_changeCounter; }
    void incrementChangeCounter() { ++m_changeCounter; }
    void setTracker(SceneChangeTracker* tracker) { m_tracker = tracker; }
    std::vector<NodeImpl*> topLevelNodes() const;

    // Stacking
    void setZValue(NodeImpl& node, double z) override;
    void stackOnTop(NodeImpl& node) override;
    void toEdge(const HeldNodes& nodes, double direction) override;
    void placeNextTo(const HeldNodes& nodes, const NodeImpl& reference, double direction) override;

    // Changes
    void noteChange(NodeImpl& node, ChangeLevel level) noexcept override;
    void noteReparenting(NodeImpl& node) noexcept override;
    void noteReparented(NodeImpl& node) noexcept override;
    NodeChangeSink& changeSink() noexcept override { return *this; }
    /// Moves on with every edit of any kind; for walks that call out to hosts.
    std::uint64_t editCounter() const { return m_editCounter; }
    /// Not owned; a sink takes itself out before it dies.
    void addRepaintSink(RepaintSink* sink);
    void removeRepaintSink(RepaintSink* sink);
    void requestFullRepaint();

    // Queries and paints
    /// In stacking order, made good after the last edits.
    const DisplayList& displayList();
    QRectF bounds();
    /// Asks a node whose box the display list cannot know. Everywhere for a host that is being
    /// asked itself.
    Box boxOf(const NodeImpl& node);
    NodeCache& cache() { return *m_cache; }
    BackgroundPainter& backgroundPainter() { return *m_backgroundPainter; }
    QPointF pixelAligned(const QPointF& point) const override;
    CrossingManager& crossings() { return *m_crossings; }
    bool takeCrossings(const NodeImpl& node, std::vector<PathIntersection>& crossings) override;
    const PathIntersectionsDecorator* crossingDecorator() const override;
    /// Other pixels, of which neither trackers nor caches of geometry need to know.
    void repaintNode(NodeImpl& node);

    /// In force while a paint is under way; restored by whoever sets it.
    struct PaintState {
        QTransform view; ///< scene to the device's own pixels
        bool isOffScreen = false;
    };
    const std::optional<PaintState>& paintState() const { return m_paint; }
    void setPaintState(const std::optional<PaintState>& state) { m_paint = state; }
    /// True only while an off-screen render runs.
    bool isRendering() const { return m_paint && m_paint->isOffScreen; }

    SceneSettings settings;

private:
    void nodeChanged(NodeImpl& node, ChangeLevel level) override;

    void close();
    void enter(NodeImpl& node);
    void leave(NodeImpl& node);
    void addTopLevel(NodeImpl& node);
    void removeTopLevel(NodeImpl& node) noexcept;
    bool isAnnounced(const NodeImpl& node) const;
    SceneChangeTracker* tracker() const { return m_isTrackerOff ? nullptr : m_tracker; }
    void reportAdded(NodeImpl& node, DeferredError& error);
    void reportRemoved(NodeImpl& node, DeferredError& error);

    bool storeZ(NodeImpl& node, double z);
    double widenZ(double by);
    void renumber();
    void shiftZ(NodeImpl& node, double by);
    HeldNodes inOrder(HeldNodes nodes, double direction);

    enum class Extent { Alone, WithChildren };
    bool isWatched() const { return !m_repaintSinks.empty(); }
    void restack();
    void repaintKnown(NodeImpl& node, Extent extent);
    void repaintAnew(NodeImpl& node, Extent extent);
    void requestRepaint(const Box& box);
    void noteAnnounced(NodeImpl& node);
    void followAnnounced();
    void settleAnnounced();

    std::uint64_t m_editCounter = 0;
    ToolkitScene m_toolkit;
    DisplayList m_displayList;
    std::vector<Scene*> m_owners;
    std::vector<NodeImpl*> m_topLevels; ///< in the order of their coming; null where one has left
    std::size_t m_topLevelsLeft = 0;
    std::vector<RepaintSink*> m_repaintSinks;
    SceneChangeTracker* m_tracker = nullptr;
    std::unordered_set<NodeImpl*> m_hitTested;
    std::vector<const NodeImpl*> m_announced; ///< whose coming or going the tracker is being told
    std::unique_ptr<SceneTools> m_tools;
    std::unique_ptr<NodeCache> m_cache;
    std::unique_ptr<BackgroundPainter> m_backgroundPainter;
    std::unique_ptr<CrossingManager> m_crossings;
    std::vector<NodeImpl*> m_unsettled; ///< whose new bounds are not known to be in force yet
    QObject m_nextTurn;
    std::optional<QRectF> m_bounds;
    std::optional<PaintState> m_paint;
    double m_lowestZ = 0;
    double m_highestZ = 0;
    unsigned m_nodeCount = 0;
    unsigned m_changeCounter = 1;
    bool m_isTrackerOff = false;
    bool m_isAsking = false; ///< nodes, and so hosts, for bounds
};

} // namespace Tova2
