#pragma once

class QPainterPath;
class QRectF;

namespace Tova2 {

class NodeImpl;
class PaintContext;
struct EffectLayer;

/// Draws a line along the edge of a node's silhouette, inside of it, on it or outside.
void paintTrace(const NodeImpl& node, const EffectLayer& layer, PaintContext& context);

/// The part of `rect` that lies outside of `area`.
QPainterPath outsideOf(const QPainterPath& area, const QRectF& rect);

} // namespace Tova2
