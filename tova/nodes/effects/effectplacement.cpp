#include "nodes/effects/effectplacement.h"

#include "nodes/effects/effectlayer.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

double scaleOf(const QTransform& transform)
{
    return std::sqrt(std::abs(transform.determinant()));
}

bool keepsItsSize(const NodeImpl& node)
{
    for (const NodeImpl* at = &node; at; at = at->parentNode()) {
        if (at->ignoresTransformations())
            return true;
    }
    return false;
}

} // namespace

QTransform effectLengths(const NodeImpl& node, const QTransform& nodeToTarget,
                         const QTransform& view)
{
    if (keepsItsSize(node)) {
        const double scale = scaleOf(nodeToTarget);
        return QTransform::fromScale(scale, scale);
    }
    const double scale = scaleOf(nodeToTarget) / scaleOf(view);
    return QTransform(view.m11() * scale, view.m12() * scale, view.m21() * scale,
                      view.m22() * scale, 0, 0);
}

EffectPlacement::EffectPlacement(const NodeImpl& node, const EffectLayer& layer,
                                 const PaintContext& context)
    : toPixels(context.nodeToPixels())
{
    const QTransform lengths = effectLengths(node, toPixels, context.view());
    offset = lengths.map(layer.offset);
    deviationX = layer.deviation * std::hypot(lengths.m11(), lengths.m21());
    deviationY = layer.deviation * std::hypot(lengths.m12(), lengths.m22());
    const double scale = context.options().viewScale;
    const double marks = node.markReach() * std::max(scale, 1.0) * context.pixelRatio() + 1;
    painted = toPixels.mapRect(node.strokedRectAt(scale)).adjusted(-marks, -marks, marks, marks);
}

} // namespace Tova2
