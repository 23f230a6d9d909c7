#include "nodes/effects/traceoutline.h"

#include "nodes/effects/effectlayer.h"
#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"
#include "nodes/pathclip.h"
#include "nodes/pen.h"
#include "nodes/polylines.h"

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
        return context.hairline() / pixels;
    return std::min(drawnWidth(stroke, context.options().viewScale), Limits::penWidth / pixels);
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

/// As what a solid line is drawn along: the toolkit's own dashes depend on what is seen of them,
/// and are too many for a very long line.
QPainterPath dashedPath(const QPainterPath& outline, StrokeStyle style, double width,
                        const PaintContext& context)
{
    Polylines dashes;
    context.cutDashes(outline, style, std::max(width, 1 / scaleOf(context.nodeToPixels())), width,
                      dashes);
    return dashes.path();
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
    const double viewScale = context.options().viewScale, width = widthOf(*layer.stroke, context);
    // A host's function may answer 0.
    if (!(width > 0))
        return;
    QPen pen = penOf(*layer.stroke, viewScale);
    pen.setWidthF(width);
    pen.setStyle(Qt::SolidLine);
    pen.setMiterLimit(TraceReach::kMitreLimit);
    const StrokeStyle style = layer.stroke->style();
    QPainter& painter = context.localPainter();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const auto box = node.silhouetteBox(viewScale);
    const QPainterPath line =
        box ? lineOf(*box, layer.inset, width).path() : node.silhouetteOutline(viewScale);
    if (!box && layer.inset != StrokeInsetType::Center) {
        clipTo(painter, line, layer.inset, TraceReach::kOfMitre * width);
        pen.setWidthF(2 * width); // one side is cut off
    }
    painter.strokePath(
        style > StrokeStyle::SolidLine ? dashedPath(line, style, width, context) : line, pen);
    painter.restore();
    context.forgetPainterState();
}

} // namespace Tova2
