#include "nodes/effects/traceoutline.h"

#include "nodes/effects/effectlayer.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "nodes/pathclip.h"
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

/// Twice as wide, for a line of which one side is cut off.
void widen(QPen& pen)
{
    if (pen.style() != Qt::SolidLine) {
        // Dashes count in widths.
        auto pattern = pen.dashPattern();
        for (qreal& length : pattern)
            length /= 2;
        pen.setDashPattern(pattern);
    }
    pen.setWidthF(2 * pen.widthF());
}

/// Cuts off what lies on the wrong side, of a line that is drawn twice as wide for it.
void clipTo(QPainter& painter, const QPainterPath& outline, StrokeInsetType inset, double reach)
{
    if (inset == StrokeInsetType::Inner)
        intersectClip(painter, outline);
    else if (inset == StrokeInsetType::Outer)
        intersectClip(painter, outsideOf(outline, outline.controlPointRect().adjusted(
                                                      -reach, -reach, reach, reach)));
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
    // A host's function may answer 0.
    if (!(width > 0))
        return;
    QPen pen = penOf(*layer.stroke, viewScale);
    pen.setWidthF(width);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    if (const auto box = node.silhouetteBox(viewScale)) {
        painter.strokePath(lineOf(*box, layer.inset, width).path(), pen);
    } else {
        const QPainterPath outline = node.silhouetteOutline(viewScale);
        pen.setMiterLimit(TraceReach::kMitreLimit);
        if (layer.inset != StrokeInsetType::Center)
            widen(pen);
        clipTo(painter, outline, layer.inset, TraceReach::kOfMitre * width);
        painter.strokePath(outline, pen);
    }
    painter.restore();
    context.forgetPainterState();
}

} // namespace Tova2
