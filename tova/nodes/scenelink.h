#pragma once

#include "nodes/changelevel.h"
#include "vetra/referenced.h"

#include <QPointF>

#include <vector>

namespace Tova2 {

class NodeChangeSink;
class NodeImpl;
class PathIntersectionsDecorator;
struct PathIntersection;
class Scene;

using HeldNodes = std::vector<Vetra::Holder<NodeImpl>>;

/// What a node asks of the scene it is in. Lets nodes stay below scenes.
class SceneLink {
public:
    /// Null once the last owner of the content is gone.
    virtual Scene* scene() noexcept = 0;
    virtual void addNode(NodeImpl& node) = 0;
    virtual void removeNode(NodeImpl& node) = 0;

    /// Keeps the scene's own records true; always called, before the change is reported to any
    /// sink.
    virtual void noteChange(NodeImpl& node, ChangeLevel level) noexcept = 0;
    /// The node is about to hang under another parent of this scene, or under none.
    virtual void noteReparenting(NodeImpl& node) noexcept = 0;
    virtual void noteReparented(NodeImpl& node) noexcept = 0;
    /// The node got another custom hit-test functor, or none.
    virtual void noteHitTester(NodeImpl& node) = 0;
    virtual NodeChangeSink& changeSink() noexcept = 0;

    virtual void setZValue(NodeImpl& node, double z) = 0;
    virtual void stackOnTop(NodeImpl& node) = 0;
    // The nodes are of this scene, and keep their order. `direction` is +1 for up, -1 for down.
    /// Beyond all others, in that direction.
    virtual void toEdge(const HeldNodes& nodes, double direction) = 0;
    /// Right beyond the reference, which is none of them.
    virtual void placeNextTo(const HeldNodes& nodes, const NodeImpl& reference,
                             double direction) = 0;

    /// Moves out the crossings that were found for the path and have not reached it. False where
    /// there is no news.
    virtual bool takeCrossings(const NodeImpl& node, std::vector<PathIntersection>& crossings) = 0;
    /// Null while crossings are not drawn.
    virtual const PathIntersectionsDecorator* crossingDecorator() const = 0;

    /// The scene point nearest to `point` that lies on a pixel's corner in the paint under way.
    virtual QPointF pixelAligned(const QPointF& point) const = 0;

protected:
    ~SceneLink() = default;
};

} // namespace Tova2
