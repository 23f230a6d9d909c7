#pragma once

#include <QPointF>
#include <QRectF>

namespace Tova2 {

class NodeImpl;

/// The room that a member of a panel takes, relative to the member's position.
struct MemberBox {
    QRectF bounds;
    QPointF corner; ///< of the geometry, which the layout puts somewhere
};

MemberBox boxOf(NodeImpl& member);

} // namespace Tova2
