#pragma once

#include "nodes/nodeimpl.h"
#include "nodes/paintcontext.h"

#include "tova/nodes/node.h"
#include "vetra/qt.h"

#include <QImage>
#include <QPainter>

namespace Tova2 {

/// On white, as on a device that shows the node through `toDevice`.
inline QImage shown(const Node& node, const QSize& size, const QTransform& toDevice)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintContext context(painter, QTransform(), PaintOptions{});
    context.enter(toDevice);
    auto* const shared = const_cast<Vetra::Referenced*>(node.getReferenced());
    static_cast<const NodeImpl*>(shared)->paintNode(context);
    return image;
}

/// Around all pixels that are not white; null when there are none.
inline QRect inkOf(const QImage& image)
{
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != 0xffffffff)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink;
}

/// Whether the ink that the node leaves lies in its bounding rectangle, but for a pixel.
inline bool boundsCoverInk(const Node& node, const QTransform& toDevice)
{
    const QRect ink = inkOf(shown(node, {900, 600}, toDevice));
    const QRectF bounds = toDevice.mapRect(Vetra::toQt(node.getBoundingRect()));
    return !ink.isNull() && bounds.adjusted(-1, -1, 1, 1).contains(QRectF(ink));
}

} // namespace Tova2
