#pragma once

#include <QImage>
#include <QRect>

class QTransform;

namespace Tova2 {

class NodeImpl;
class PaintContext;

/// The silhouette of the node that `context` is in, as the alpha of the part `area` of what
/// `toSheet` maps the device's own pixels to. Null when there is no memory for it.
QImage silhouetteSheet(const NodeImpl& node, const PaintContext& context, const QTransform& toSheet,
                       const QRect& area);

} // namespace Tova2
