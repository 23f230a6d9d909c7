#pragma once

namespace Tova2 {

class NodeImpl;
class PaintContext;
struct EffectLayer;

/// Draws a node's silhouette in the layer's colour, moved and softened. Only what can be seen is
/// rasterised, and very soft pictures are made smaller than they are shown.
void paintSoftSilhouette(const NodeImpl& node, const EffectLayer& layer, PaintContext& context);

} // namespace Tova2
