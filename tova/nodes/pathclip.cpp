#include "nodes/pathclip.h"

#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <QRegion>

namespace Tova2 {

void intersectClip(QPainter& painter, const QPainterPath& area)
{
    bool isInvertible = false;
    const QTransform toArea = painter.deviceTransform().inverted(&isInvertible);
    const QRegion parts = painter.paintEngine()->systemClip();
    QPainterPath clip = area;
    if (isInvertible && parts.rectCount() > 1) {
        const QPointF last = parts.boundingRect().bottomRight();
        clip.addPolygon(toArea.map(QPolygonF(QRectF(last, QSizeF(0.5, 1)))));
        clip.closeSubpath();
    }
    painter.setClipPath(clip, Qt::IntersectClip);
}

} // namespace Tova2
