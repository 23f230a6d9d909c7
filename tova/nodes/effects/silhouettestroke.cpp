#include "nodes/effects/silhouettestroke.h"

#include "nodes/pen.h"

#include "tova/nodes/geometry/bounds.h"
#include "tova/nodes/style/stroke.h"

#include <QPainterPathStroker>

namespace Tova2 {

bool keepsItsWidth(const Stroke& stroke, double viewScale)
{
    return stroke.isNoStroke() || drawnWidth(stroke, viewScale) == drawnWidth(stroke, 1);
}

QPainterPath strokedArea(const QPainterPath& path, const Stroke& stroke, double viewScale)
{
    QPainterPathStroker stroker(penOf(stroke, viewScale));
    stroker.setDashPattern(Qt::SolidLine);
    stroker.setWidth(drawnWidth(stroke, viewScale));
    return stroker.createStroke(path);
}

QPainterPath strokedEdge(const QPainterPath& area, const Stroke& stroke, double viewScale)
{
    constexpr int kElementsOfRect = 5;
    if (stroke.isNoStroke())
        return area;
    Bounds all(strokedArea(area, stroke, viewScale));
    all.unionWith(Bounds(area));
    // Regions that are too long answer from their rectangles.
    return all.isOnlyRect() && area.elementCount() > kElementsOfRect ? area : all.asQPainterPath();
}

} // namespace Tova2
