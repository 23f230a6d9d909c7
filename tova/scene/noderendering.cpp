#include "nodes/destruction.h"
#include "nodes/nodeimpl.h"
#include "nodes/values.h"
#include "scene/box.h"
#include "scene/offscreensize.h"
#include "scene/renderpipeline.h"
#include "scene/stackingorder.h"

#include "tova/nodes/geometry/limits.h"
#include "tova/nodes/node.h"
#include "vetra/qt.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <cmath>

namespace Tova2 {

namespace {

/// Of the node and its visible children, in the node's coordinates.
QRectF reachOf(NodeImpl& root, double scale)
{
    bool isInvertible = false;
    const QTransform toLocal = root.sceneTransform().inverted(&isInvertible);
    Box all;
    visitInStackingOrder(root, 0, [&](NodeImpl& node, int) {
        const bool isSeen = isInvertible && node.isVisibleTo(root.parentItem());
        if (isSeen && !node.strokedRectAt(scale).isEmpty())
            all.unite(Box::of(node.paintedRect(node.sceneTransform() * toLocal, toLocal, scale)));
    });
    return all.isNowhere() ? QRectF() : all.rect();
}

} // namespace

// Here, beside the pipeline it needs, rather than with the node's other operations.
Vetra::Pixmap Node::renderToPixmap(CacheType type, double scale, Vetra::GLPoint<double>& offset,
                                   const Vetra::StringID&) const
{
    NodeImpl* const root = getValidImpl();
    const DestructionDelay delay;
    const Vetra::Holder<NodeImpl> keep(root);
    if (!(scale > 0) || !std::isfinite(scale))
        return {};
    const QRectF reach = reachOf(*root, scale);
    const QRectF inPixels =
        QRectF(reach.topLeft() * scale, reach.size() * scale).adjusted(-1, -1, 1, 1);
    const QRectF whole(QPointF(std::floor(inPixels.left()), std::floor(inPixels.top())),
                       QPointF(std::ceil(inPixels.right()), std::ceil(inPixels.bottom())));
    // Not by dividing the size: the toolkit asserts that a divisor is not tiny.
    const QRectF exposed(whole.x() / scale, whole.y() / scale, whole.width() / scale,
                         whole.height() / scale);
    if (reach.isEmpty() || !isRenderable(whole.size()) || !isFinite(exposed))
        return {};
    QImage image(whole.size().toSize(), QImage::Format_ARGB32_Premultiplied);
    if (image.isNull())
        return {};
    image.fill(Qt::transparent);
    offset = Vetra::fromQt(exposed.topLeft());
    QPainter painter(&image);
    RenderRequest request;
    request.view = QTransform::fromScale(scale, scale) *
                   QTransform::fromTranslate(-whole.left(), -whole.top());
    request.exposed = exposed;
    request.keepsAll = true; // by itself it crowds nothing
    request.isOffScreen = true;
    request.isPixelDevice = type != CacheType::NoCache;
    renderSubtree(*root, painter, request);
    painter.end();
    return Vetra::fromQt(QPixmap::fromImage(image));
}

} // namespace Tova2
