#pragma once

#include "nodes/paintcontext.h"
#include "scene/placementcache.h"

#include <QTransform>

#include <cstdint>

namespace Tova2 {

class NodeImpl;
struct RenderRequest;

/// Paints nodes that it is handed in stacking order, each with its placement, and with the opacity
/// and the clips of its ancestors below `root`.
class NodeWalk {
public:
    /// `root` null stands for the scene. `view` goes down to the painter's device.
    NodeWalk(QPainter& painter, const QTransform& view, const RenderRequest& request,
             const PaintOptions& options, const NodeImpl* root);
    ~NodeWalk();
    NodeWalk(const NodeWalk&) = delete;
    NodeWalk& operator=(const NodeWalk&) = delete;

    /// One that has no opacity, clip or fixed size, neither itself nor from an ancestor.
    void paintPlain(NodeImpl& node);
    void paintSpecial(NodeImpl& node);
    /// Of the nodes to come.
    void setQuality(std::uint8_t quality) { m_context.setQuality(quality); }
    /// After an edit in the middle of the walk.
    void forgetPlacements() { m_placements = PlacementCache(); }

private:
    void paint(NodeImpl& node);
    void useClipsOf(const NodeImpl& node);
    void clipTo(const NodeImpl& node);
    void leaveClips();
    const NodeImpl* parentWithin(const NodeImpl& node) const;

    QPainter& m_painter;
    PaintContext m_context;
    PlacementCache m_placements;
    const NodeImpl* m_root;
    const NodeImpl* m_clipper = nullptr; ///< the nearest clipping ancestor whose clips are set
    QRectF m_deviceExposed;
    double m_baseOpacity;
    std::optional<PixelArea> m_pixels; ///< that are drawn on without the painter outside of clips
    bool m_isPixelDevice;
};

} // namespace Tova2
