#pragma once

#include <QRectF>
#include <QTransform>

#include <cstdint>

class QPainter;

namespace Tova2 {

class NodeImpl;
class ScenePrivate;

/// One paint: where from, where to, and how well.
struct RenderRequest {
    QTransform view;       ///< scene to painter, whose own transform it is applied before
    QRectF exposed;        ///< what to paint, in scene coordinates
    bool keepsAll = false; ///< leaves nothing out, whatever the scene's strategy says
    bool isOffScreen = false;
    bool isClipped = false; ///< the painter is, to what is to be painted
    bool isPixelDevice =
        true; ///< false where node caches would coarsen what the device can keep as vectors
};

/// Every picture of a scene comes through here: walks the nodes in stacking order, leaves out what
/// cannot be seen, and lets each paint itself. The painter is restored, also when a node's own
/// painter throws; a node that goes meanwhile is passed by.
void renderScene(ScenePrivate& scene, QPainter& painter, const RenderRequest& request);

/// The same for a node with its children, as if nothing were around them; `request` is in the
/// node's coordinates.
void renderSubtree(NodeImpl& root, QPainter& painter, const RenderRequest& request);

} // namespace Tova2
