#pragma once

#include "tova/nodes/cachetype.h"
#include "tova/nodes/customhittestfunctor.h"
#include "tova/nodes/geometry/bounds.h"
#include "tova/nodes/property.h"
#include "tova/nodes/style/drawstyle.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/any.h"
#include "vetra/color.h"
#include "vetra/cursor.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/pixmap.h"
#include "vetra/stringid.h"
#include "vetra/transform.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Vemit {
class Listener;
}

namespace Tova2 {

class NodeImpl;
class Scene;
struct NodeEmitters;

/// One more than the largest index of a factory that makes elements on first need.
inline constexpr std::uint64_t kMaxNodeImplFactories = 512;

/// Handle to one element of a scene. Copies share the element; an empty handle has none. GUI thread
/// only.
///
/// An element lives as long as a handle, the scene it is in or its parent holds it. Operations make
/// the element of a handle that has none yet; on an empty handle they throw tova:nodes/InvalidNode,
/// unless they say otherwise. Lengths are in scene units (points), local to the element where
/// nothing else is said. A setter given a value that is not finite does nothing.
class TOVA_EXPORT Node {
public:
    class EmptyHitTester;

    /// An empty handle; allocates nothing.
    constexpr Node() noexcept = default;
    explicit Node(NodeImpl* impl) noexcept;
    /// Shares the element, which is made first if need be.
    Node(const Node& other);
    Node(Node&& other) noexcept : m_word(other.m_word) { other.m_word = 0; }
    ~Node();
    Node& operator=(const Node& other);
    Node& operator=(Node&& other) noexcept;
    /// Whether both are empty or share one element.
    bool operator==(const Node& other) const;

    // Lifetime and identity

    /// False for an empty handle only.
    bool isValid() const noexcept { return m_word != 0; }
    /// Throws tova:nodes/InvalidNode when `required` and the handle is empty.
    void guaranteeValid(bool required = true) const { guaranteeValid(*this, required); }
    static void guaranteeValid(const Node& node, bool required = true);
    /// Drops this handle's reference; the handle is empty afterwards.
    void release();
    /// Takes the element, with its children, out of its scene.
    void remove();
    /// `remove`, then `release`. Nothing on an empty handle.
    void removeAndRelease();
    std::size_t hashValue() const;
    const Vetra::Referenced* getReferenced() const;
    bool isa(const char* typeName) const;
    const char* getFullyQualifiedKobjTypeName() const;
    static const char* staticGetFullyQualifiedKobjTypeName();
    /// The element under a handle of its kind, for what a query has found: `node.as<RectNode>()`.
    /// Empty when the element is of another kind.
    template <class Kind>
    Kind as() const
    {
        return Kind(getValidImpl());
    }

    // Hierarchy

    /// Moves the element under `parent`, and into its scene if that is another one, on top of what
    /// is there. An empty `parent` unparents. Throws tova:nodes/CannotParentToSelf or
    /// tova:nodes/CyclicalHierarchy; the tree is then untouched.
    void setParent(const Node& parent);
    /// Makes the element a top-level one of the scene it is in.
    void unparent();
    Node getParent() const;
    /// From the bottom to the top of the stacking order.
    std::vector<Node> getChildren() const;
    /// An empty handle when there is no such child.
    Node getChildAt(int index) const;
    /// Null while the element is in no scene.
    Scene* getScene() const;

    // Geometry

    /// Where the element's origin lies in its parent.
    Vetra::GLPoint<double> getPosition() const;
    void setPosition(const Vetra::GLPoint<double>& position);
    Vetra::GLPoint<double> getScenePosition() const;
    /// Nothing when the parent's coordinates cannot be mapped back (a scale of 0).
    void setScenePosition(const Vetra::GLPoint<double>& position);
    void translate(const Vetra::GLPoint<double>& distance);
    void translate(double dx, double dy) { translate(Vetra::GLPoint<double>{dx, dy}); }
    static const Property<Vetra::GLPoint<double>>& PositionProperty();

    /// Applied before the position: rotation and scale are about the element's origin.
    Vetra::Transform getTransform() const;
    void setTransform(const Vetra::Transform& transform);
    void clearTransform() { setTransform({}); }
    /// Each of the six numbers within 0.0001.
    bool isTransformAlmostEqual(const Vetra::Transform& transform) const;
    void rotateDegrees(double degrees);
    void rotateRadians(double radians);
    void rotateDegreesAroundPoint(double degrees, const Vetra::GLPoint<double>& point);
    void rotateRadiansAroundPoint(double radians, const Vetra::GLPoint<double>& point);
    void scale(double factor) { scale(factor, factor); }
    void scale(double sx, double sy);
    /// From local coordinates to those of a device that shows the scene through `view`.
    Vetra::Transform deviceTransform(const Vetra::Transform& view) const;
    /// Keeps the element and its children at their size and direction on the device, anchored at
    /// the element's origin.
    void setIgnoresTransformations(bool ignores);
    bool doesIgnoreTransformations() const;
    /// Scene units a local unit: the square root of the scene transform's determinant.
    double getContentsScaleInScene() const;

    /// The geometry with its stroke as wide as at a view scale of 1; children do not count.
    Vetra::GLRect<double> getBoundingRect() const;
    /// The geometry alone.
    Vetra::GLRect<double> getGeometryRect() const;
    Vetra::GLRect<double> getGeometryRectCopy() const { return getGeometryRect(); }
    double getWidth() const { return getGeometryRect().width; }
    double getHeight() const { return getGeometryRect().height; }

    // Mapping to local coordinates answers the origin or empty bounds where the transform has no
    // inverse.
    Vetra::GLPoint<double> mapLocalToScene(const Vetra::GLPoint<double>& point) const;
    Bounds mapLocalToScene(const Bounds& bounds) const;
    Vetra::GLPoint<double> mapSceneToLocal(const Vetra::GLPoint<double>& point) const;
    Bounds mapSceneToLocal(const Bounds& bounds) const;
    Vetra::GLRect<double> mapLocalRectToSceneRect(const Vetra::GLRect<double>& rect) const;
    Vetra::GLRect<double> mapSceneRectToLocalRect(const Vetra::GLRect<double>& rect) const;
    Vetra::GLPoint<double> mapOtherNodeToLocal(const Node& other,
                                               const Vetra::GLPoint<double>& point) const;
    Bounds mapOtherNodeToLocal(const Node& other, const Bounds& bounds) const;

    // Stacking: each acts only on a node that is in a scene, and renumbers across the whole scene.
    // Nothing happens when the reference is the node itself or is in another scene.

    double getZValue() const;
    void setZValue(double z);
    void toTop();
    void toBottom();
    void placeAbove(const Node& reference);
    void placeBelow(const Node& reference);
    /// `placeAbove`, unless the node already is above.
    void ensureAbove(const Node& reference);
    void ensureBelow(const Node& reference);
    // The forms for several nodes keep the order the nodes have among themselves.
    static void toTop(const std::vector<Node>& nodes);
    static void toBottom(const std::vector<Node>& nodes);
    static void placeAbove(const std::vector<Node>& nodes, const Node& reference);
    static void placeBelow(const std::vector<Node>& nodes, const Node& reference);
    static void ensureAbove(const std::vector<Node>& nodes, const Node& reference);
    static void ensureBelow(const std::vector<Node>& nodes, const Node& reference);
    void setStacksBehindParent(bool behind);
    bool isStacksBehindParent() const;
    /// Children are painted and hit only inside this element's own shape; nothing on a container,
    /// which has none.
    void setClipsChildren(bool clips);
    bool isClipsChildren() const;

    // Appearance

    DrawStyle getDrawStyle() const;
    void setDrawStyle(const DrawStyle& style);
    Stroke getStroke() const;
    void setStroke(const Stroke& stroke);
    Fill getFill() const;
    void setFill(const Fill& fill);
    Effect getEffect() const;
    void setEffect(const Effect& effect);
    Vetra::Color getStrokeColor() const;
    void setStrokeColor(const Vetra::Color& color);
    Vetra::Color getFillColor() const;
    void setFillColor(const Vetra::Color& color);
    double getOpacity() const;
    /// Clamped to [0, 1]; the opacities of ancestors multiply.
    void setOpacity(double opacity);
    void setVisible(bool visible);
    /// The element's own switch. Never makes the element: false while there is none.
    bool isVisible() const;
    /// As `isVisible`, and every ancestor is visible as well.
    bool isVisibleToScene() const;
    void setCacheType(CacheType type);
    CacheType getCacheType() const;
    /// The element is left out of paints of a lower quality: 0 coarsest, 2 full.
    void setMinLODQuality(std::uint8_t quality);
    std::uint8_t getMinLODQuality() const;
    bool canRenderAtLODQuality(std::uint8_t quality, double scale) const;

    // Tags

    void addTag(const Vetra::StringID& tag);
    void addTag(const Vetra::StringID& tag, const Vetra::any& value);
    bool hasTag(const Vetra::StringID& tag) const;
    /// Empty when the tag is absent or has no value.
    Vetra::any getTagValue(const Vetra::StringID& tag) const;
    std::vector<Vetra::StringID> getTags() const;
    void removeTag(const Vetra::StringID& tag);
    void removeAllTags();
    std::vector<Node> getChildrenWithTag(const Vetra::StringID& tag) const;
    /// Parents before their children.
    std::vector<Node> getDescendantsWithTag(const Vetra::StringID& tag) const;

    // Input

    void setCursor(const Vetra::Cursor& cursor);
    void unsetCursor();
    bool hasCursor() const;
    /// The arrow when none is set.
    Vetra::Cursor getCursor() const;
    /// Null restores the element's own shape. Scenes ask the functor wherever the element's bounds
    /// or those that the functor gives reach.
    void setCustomHitTestFunctor(CustomHitTestFunctor* functor);
    bool contains(const Vetra::GLPoint<double>& point) const;
    bool containsScenePoint(const Vetra::GLPoint<double>& point) const;
    bool intersects(const Vetra::GLRect<double>& rect) const;
    bool intersects(const Bounds& bounds) const;
    /// Connects to one of the element's emitters with the arguments of `Vemit::Emitter::connect`:
    /// `node.connectTo(&NodeEmitters::mousePress, listener, callback)`. Answers the
    /// `Vemit::Connection`. The emitters die with the element.
    template <class Emitter, class... Arguments>
    auto connectTo(Emitter NodeEmitters::*emitter, Arguments&&... arguments)
    {
        return (madeEmitters().*emitter).connect(std::forward<Arguments>(arguments)...);
    }
    void disconnectFromMousePressEmitter(Vemit::Listener* listener);
    void disconnectFromMouseReleaseEmitter(Vemit::Listener* listener);

    // Output

    /// The element with its children, on a transparent ground, at `scale` pixels a local unit.
    /// `offset` is set to the local point of the pixmap's top left corner. Painted anew at each
    /// call; with a cache type other than NoCache, elements below that have a cache of their own
    /// are painted from it. An element looks the same in every layer, so `layerId`, the layer that
    /// the picture is meant for, changes nothing. A null pixmap when there is nothing to show or
    /// when it would exceed the library's limits.
    Vetra::Pixmap renderToPixmap(CacheType type, double scale, Vetra::GLPoint<double>& offset,
                                 const Vetra::StringID& layerId = {}) const;

protected:
    /// Slot of what makes an element on first need; a kind of node asks its private half for it.
    struct FactoryIndex {
        std::uint64_t index;
    };
    explicit Node(FactoryIndex factory) noexcept : m_word(factory.index) {}

    NodeImpl* getImpl() const noexcept;      ///< null until the element is made
    NodeImpl* getImplCreateOnDemand() const; ///< makes it; null where nothing can be made
    NodeImpl* getValidImpl() const;          ///< makes it; throws tova:nodes/InvalidNode

private:
    friend class NodeImpl;
    friend std::size_t hash_value(const Node& node) { return node.hashValue(); }

    void adopt(NodeImpl* impl) const noexcept;
    NodeEmitters& madeEmitters();

    //   0           empty
    //   1 .. 511    slot of the factory that makes the element on first need
    //   512 ..      address of a NodeImpl, on which this handle holds one reference
    // Making the element does not change what a handle means, so it is done on const handles as
    // well.
    mutable std::uint64_t m_word = 0;
};

/// Hits nothing: for nodes that input passes through.
class TOVA_EXPORT Node::EmptyHitTester : public CustomHitTestFunctor {
public:
    static EmptyHitTester* instance();

    bool contains(const Node&, double, const Vetra::GLPoint<double>&) const override;
    bool intersects(const Node&, double, const Vetra::GLRect<double>&) const override;
    bool intersects(const Node&, double, const Bounds&) const override;
    Bounds hitTestBounds(const Node&, double) const override;

    TOVA_DERIVED_TYPE("Tova2.EmptyHitTester", CustomHitTestFunctor);
};

} // namespace Tova2

template <>
struct std::hash<Tova2::Node> {
    std::size_t operator()(const Tova2::Node& node) const { return node.hashValue(); }
};
