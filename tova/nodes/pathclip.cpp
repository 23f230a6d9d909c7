#include "nodes/pathclip.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace Tova2 {

namespace {

/// Of a pixel: less is nothing to the toolkit, and so much nobody sees.
constexpr double kSliver = 1.0 / 64;

} // namespace

void intersectClip(QPainter& painter, const QPainterPath& area)
{
    bool isInvertible = false;
    const QTransform toArea = painter.deviceTransform().inverted(&isInvertible);
    QPainterPath clip = area;
    if (isInvertible) {
        clip.addPolygon(toArea.map(QPolygonF(QRectF(0, 0, kSliver, 1))));
        clip.closeSubpath();
    }
    painter.setClipPath(clip, Qt::IntersectClip);
}

} // namespace Tova2
