#pragma once

#include <QRectF>
#include <QTransform>

namespace Tova2 {

class NodeImpl;
class PaintContext;
struct EffectLayer;

/// From the lengths of a node's effects, whose directions are the view's, to what `nodeToTarget`
/// maps to.
QTransform effectLengths(const NodeImpl& node, const QTransform& nodeToTarget,
                         const QTransform& view);

/// Where an effect of the node that a context is in goes, in the device's own pixels.
struct EffectPlacement {
    EffectPlacement(const NodeImpl& node, const EffectLayer& layer, const PaintContext& context);

    QTransform toPixels; ///< from the node's coordinates
    QPointF offset;
    double deviationX, deviationY;
    QRectF painted; ///< by the node itself
};

} // namespace Tova2
