#include "nodes/effects/traceoutline.h"

#include "nodes/effects/effectlayer.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "nodes/pen.h"

#include "tova/nodes/geometry/limits.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

double scaleOf(const QTransform& transform)
{
    return std::sqrt(std::abs(transform.determinant()));
}

/// In the node's units: a line of one pixel as well.
double widthOf(const Stroke& stroke, const PaintContext& context)
{
    const double pixels = scaleOf(context.nodeToPixels());
    if (stroke.logicalWidth() == 0)
        return 1 / pixels;
    return std::min(stroke.width(context.options().viewScale), Limits::penWidth / pixels);
}

/// Where a box's line runs, so that nothing has to be cut off.
SilhouetteBox lineOf(const SilhouetteBox& box, StrokeInsetType inset, double width)
{
    switch (inset) {
    case StrokeInsetType::Inner:
        return box.grown(-width / 2);
    case StrokeInsetType::Outer:
        return box.grown(width / 2);
    default:
        return box;
    }
}

/// Cuts off what lies on the wrong side, of a line that is drawn twice as wide for it.
void clipTo(QPainter& painter, const QPainterPath& outline, StrokeInsetType inset, double width)
{
    if (inset == StrokeInsetType::Inner)
        painter.setClipPath(outline, Qt::IntersectClip);
    else if (inset == StrokeInsetType::Outer)
        painter.setClipPath(
            outsideOf(outline, outline.controlPointRect().adjusted(-width, -width, width, width)),
            Qt::IntersectClip);
}

} // namespace

// A hole is what a path that is wound the other way leaves: no intersections to be computed.
QPainterPath outsideOf(const QPainterPath& area, const QRectF& rect)
{
    QPainterPath outside;
    outside.addRect(rect);
    outside.addPath(area);
    return outside;
}

void paintTrace(const NodeImpl& node, const EffectLayer& layer, PaintContext& context)
{
    QPainter& painter = context.localPainter();
    const double viewScale = context.options().viewScale, width = widthOf(*layer.stroke, context);
    QPen pen = penOf(*layer.stroke, viewScale);
    pen.setWidthF(width);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (const auto box = node.silhouetteBox(viewScale)) {
        painter.strokePath(lineOf(*box, layer.inset, width).path(), pen);
    } else {
        const QPainterPath outline = node.silhouetteOutline(viewScale);
        // Mitres reach too far.
        if (pen.joinStyle() != Qt::BevelJoin)
            pen.setJoinStyle(Qt::RoundJoin);
        if (layer.inset != StrokeInsetType::Center)
            pen.setWidthF(2 * width);
        clipTo(painter, outline, layer.inset, width);
        painter.strokePath(outline, pen);
    }
    painter.restore();
    context.forgetPainterState();
}

} // namespace Tova2
