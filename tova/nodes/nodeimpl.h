#pragma once

#include "nodes/changelevel.h"
#include "nodes/effects/silhouettebox.h"
#include "tova/nodes/cachetype.h"
#include "tova/nodes/geometry/bounds.h"
#include "tova/nodes/node.h"
#include "tova/nodes/style/drawstyle.h"
#include "vemit/emitter.h"
#include "vetra/referenced.h"

#include <QGraphicsItem>

#include <boost/container/small_vector.hpp>

#include <cstdint>
#include <memory>
#include <vector>

namespace Tova2 {

class CustomHitTestFunctor;
class Inspection;
class LinearPathNodeImpl;
class NodeChangeSink;
class PaintContext;
class SceneLink;
struct NodeExtras;

/// What the scene's packed records keep in a node to find it again. Only the scene reads or writes
/// it.
struct SceneRecord {
    static constexpr std::uint32_t kNone = 0xffffffff;
    std::uint32_t slot = kNone;          ///< in the display list
    std::uint32_t topLevelIndex = kNone; ///< among the scene's top-level nodes
    bool isUnsettled = false;            ///< has announced other bounds
    bool isMoved = false;                ///< has another place in the stacking order
    bool isSubtreeStale = false;         ///< boxes of it and all below are to be computed again
    bool isCounted = false;              ///< it was added by itself, not along with its parent
};

/// The shared half of a node and its toolkit item: parent, position, transform, z-value, opacity
/// and visibility are kept in the item. The toolkit only stores; it never paints, searches or
/// deletes it.
///
/// Derived classes hold the geometry. Their setters refuse bad values, return if equal, store, and
/// call `reportChange`.
class NodeImpl : public Vetra::Referenced, public QGraphicsItem {
public:
    static void* operator new(std::size_t size);
    static void operator delete(void* block, std::size_t size) noexcept;

    // Identity
    virtual const char* typeName() const { return "Tova2.Node"; }
    virtual bool isa(const char* name) const;
    Node handle() { return Node(this); }
    /// Null for every other kind: what takes part in crossings.
    virtual LinearPathNodeImpl* asLinearPath() { return nullptr; }
    /// Adds lines of what only this kind has.
    virtual void inspect(Inspection&) const {}
    /// Only for the loop that takes nodes down.
    /// Carries out what `dispose` has put off, unless somebody has come to hold the node since.
    void deleteIfUnheld()
    {
        m_isDoomed = false;
        if (referenceCount() == 0)
            delete this;
    }

    // Hierarchy
    NodeImpl* parentNode() const { return static_cast<NodeImpl*>(parentItem()); }
    /// Null takes the node from its parent and leaves it in its scene.
    void setParent(NodeImpl* parent);
    bool isAncestorOfNode(const NodeImpl& other) const;
    SceneLink* sceneLink() const { return m_scene; }
    /// Also in one that it has left since.
    bool hasBeenInScene() const { return m_hasBeenInScene; }
    /// Called by the scene for each node of a subtree that enters or leaves it.
    void setSceneLink(SceneLink* scene);
    /// Whether a scene or a parent holds a reference on the node.
    void setMembership(bool isMember);
    SceneRecord& sceneRecord() { return m_record; }
    const SceneRecord& sceneRecord() const { return m_record; }

    // Geometry
    QTransform localTransform() const; ///< to the parent's coordinates
    QTransform sceneTransform() const;
    QTransform nodeToDevice(const QTransform& view) const;
    bool isTranslatedOnly() const { return !m_hasTransform; }
    void setPosition(const QPointF& position);
    void setLocalTransform(const QTransform& transform);
    virtual QRectF geometryRect() const { return {}; }
    /// For a node whose size follows a scale function.
    virtual bool geometryDependsOnScale() const { return false; }
    virtual QRectF geometryRectAt(double) const { return geometryRect(); }
    /// `geometryRect` with the stroke as it is at a view scale of 1.
    virtual QRectF strokedRect() const;
    QRectF strokedRectAt(double viewScale) const;
    /// In the coordinates that `toTarget` maps to, what the node may paint with its effects, whose
    /// directions are those of `view`.
    QRectF paintedRect(const QTransform& toTarget, const QTransform& view, double viewScale) const;
    /// The same in local coordinates, as it is at a view scale of 1.
    QRectF paintedRect() const;
    /// How far the stroke may reach beyond the geometry, as a multiple of its width.
    virtual double strokeReach() const { return 0.5; }
    /// In scene units at a view scale of 1, how far marks may lie beyond the stroked geometry; they
    /// keep their size on the device when the view zooms out.
    virtual double markReach() const { return 0; }
    /// False while there is nothing to draw a stroke along and nothing to hit.
    virtual bool hasOutline() const { return true; }
    /// False for what scene bounds leave out although it has bounds.
    virtual bool countsInBounds() const { return true; }
    /// Told by a scene that has asked for the bounds and keeps it that there are none.
    virtual void noteBoundsKept() const {}

    // Hit tests, in local coordinates, by the outline grown by half the stroke; without the custom
    // functor.
    virtual Bounds outline() const;
    virtual bool outlineContains(const QPointF& point) const;
    virtual bool outlineIntersects(const Bounds& area) const;
    // The same by way of the custom functor, if there is one.
    bool hasCustomHitTest() const;
    void setHitTester(CustomHitTestFunctor* functor);
    /// Where the custom functor says that the node may be hit.
    QRectF customHitBounds();
    bool hitContains(const QPointF& point);
    bool hitIntersects(const QRectF& rect);
    bool hitIntersects(const Bounds& area);

    // Appearance
    const DrawStyle& drawStyle() const { return m_style; }
    void setDrawStyle(const DrawStyle& style);
    void setNodeVisible(bool visible);
    bool isVisibleItself() const;
    bool isVisibleToScene() const;
    void setNodeOpacity(double opacity);
    CacheType cacheType() const { return m_cacheType; }
    void setCacheType(CacheType type);
    std::uint8_t minLODQuality() const { return m_minQuality; }
    void setMinLODQuality(std::uint8_t quality);
    virtual bool canRenderAtLODQuality(std::uint8_t quality, double scale) const;
    bool clipsChildren() const { return m_clipsChildren; }
    /// False for a node that has no shape of its own, which `clipsChildren` then does nothing for.
    virtual bool hasShape() const { return true; }
    bool isClipping() const { return m_clipsChildren && hasShape(); }
    void setClipsChildren(bool clips);
    bool stacksBehindParent() const;
    void setStacksBehindParent(bool behind);
    bool ignoresTransformations() const { return m_ignoresTransformations; }
    void setIgnoresTransformations(bool ignores);
    /// The node by itself, without its effects.
    virtual void paintNode(PaintContext& context) const = 0;
    void paintWithEffects(PaintContext& context) const;

    // The silhouette, which effects are made from: what the node paints, but opaque
    /// Into a context of silhouettes.
    virtual void paintSilhouette(PaintContext& context) const { paintNode(context); }
    /// Its edge, without the gaps of dashes.
    virtual QPainterPath silhouetteOutline(double viewScale) const;
    /// Whether it is made of lines, areas and letters, and not of pictures.
    virtual bool isSilhouetteOfInk() const { return true; }
    /// Where a box is all of it.
    virtual std::optional<SilhouetteBox> silhouetteBox(double) const { return {}; }
    /// Whether nothing that lies under it is seen.
    virtual bool hidesItsSilhouette() const;
    /// Equal for nodes of a kind with equal silhouettes; empty where only the node knows.
    virtual QByteArray silhouetteKey() const { return {}; }
    /// Kept pictures of this node's silhouette are to be forgotten with its next change.
    void noteEffectPicture() const { m_hasEffectPictures = true; }
    void forgetEffectPictures() const;

    // Changes
    /// After any change: drops what depends on it, then tells the scene and the sink. May throw
    /// what a host throws.
    void reportChange(ChangeLevel level);
    void setChangeSink(NodeChangeSink* sink);
    /// Whoever follows this very node hears of its changes after the sink has. Sends when its
    /// children come or go, too.
    Vemit::Emitter<NodeImpl&, ChangeLevel>& changeEmitter();
    void tellFollowers(ChangeLevel level);

    NodeExtras* extras() const { return m_extras.get(); }
    NodeExtras& madeExtras();

protected:
    NodeImpl();
    ~NodeImpl() override;
    void destroy() override;

    virtual void parentChanged() {}
    virtual void sceneChanged() {}
    /// Something that the picture or the outline depends on is about to be different.
    virtual void dropCaches(ChangeLevel) {}

private:
    // The toolkit learns nothing of bounds and paints nothing. It would ask for both in the middle
    // of its own bookkeeping, and a custom node hands on to a host that may do anything.
    QRectF boundingRect() const final { return {}; }
    void paint(QPainter*, const QStyleOptionGraphicsItem*, QWidget*) final {}

    void tellSink(ChangeLevel level);
    bool hasFollowers() const;
    void checkParent(const NodeImpl* parent) const;
    bool canHangUnder(const NodeImpl* parent) const;
    void hangUnder(NodeImpl* parent);
    void detachChildren();

    SceneLink* m_scene = nullptr;
    std::unique_ptr<NodeExtras> m_extras;
    DrawStyle m_style;
    SceneRecord m_record;
    CacheType m_cacheType = CacheType::NoCache;
    std::uint8_t m_minQuality = 0;
    bool m_isReady : 1 = false; ///< between the end of construction and the start of destruction
    bool m_hasTransform : 1 = false;
    bool m_isMember : 1 = false;
    bool m_isDoomed : 1 = false; ///< queued for deletion
    bool m_hasBeenInScene : 1 = false;
    bool m_clipsChildren : 1 = false;
    mutable bool m_hasEffectPictures : 1 = false;
    bool m_ignoresTransformations : 1 = false;

    template <class Impl, class... Arguments>
    friend Impl* makeNode(Arguments&&... arguments);
};

/// Makes an implementation that is ready to be held by a handle.
template <class Impl, class... Arguments>
Impl* makeNode(Arguments&&... arguments)
{
    auto* const impl = new Impl(std::forward<Arguments>(arguments)...);
    static_cast<NodeImpl*>(impl)->m_isReady = true;
    return impl;
}

/// Every item that the library makes is a node.
inline NodeImpl* nodeOf(QGraphicsItem* item)
{
    return static_cast<NodeImpl*>(item);
}

/// The node and all below it, parents before children, as bare pointers; a loop, so that depth
/// costs no stack.
using Subtree = boost::container::small_vector<NodeImpl*, 16>;
Subtree subtreeOf(NodeImpl& root);

} // namespace Tova2
