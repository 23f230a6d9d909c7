#include "nodes/effects/silhouettesheet.h"

#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"

#include "vetra/qt.h"

#include <QPainter>

#include <cmath>

namespace Tova2 {

namespace {

double scaleOf(const QTransform& transform)
{
    return std::sqrt(std::abs(transform.determinant()));
}

} // namespace

QImage silhouetteSheet(const NodeImpl& node, const PaintContext& context, const QTransform& toSheet,
                       const QRect& area)
{
    QImage sheet(area.size(), QImage::Format_ARGB32_Premultiplied);
    if (sheet.isNull())
        return sheet;
    sheet.fill(Qt::transparent);
    QPainter painter(&sheet);
    painter.setRenderHints(QPainter::TextAntialiasing | QPainter::SmoothPixmapTransform);
    const double ratio = context.pixelRatio();
    const QTransform view = context.view() * QTransform::fromScale(ratio, ratio) * toSheet *
                            QTransform::fromTranslate(-area.x(), -area.y());
    PaintOptions options = context.options();
    options.exposed = Vetra::fromQt(view.inverted().mapRect(QRectF(QPointF(), area.size())));
    PaintContext own(painter, view, options);
    own.setFillsStrokes(true);
    // A line of one pixel is as wide where the sheet's pixels are not the device's.
    const double shrink = scaleOf(toSheet);
    own.setSilhouette(shrink == 1 ? 0 : 1 / scaleOf(context.nodeToPixels()), Vetra::Color(0, 0, 0));
    own.setOpacity(1);
    own.enterLike(context);
    node.paintSilhouette(own);
    return sheet;
}

} // namespace Tova2
