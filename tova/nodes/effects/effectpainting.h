#pragma once

namespace Tova2 {

class NodeImpl;
class PaintContext;
struct EffectLayer;

/// Draws a layer of the effects of the node that the context is in: softens pictures of
/// silhouettes, and keeps them; everything else stays lines and areas. The painter's state is known
/// to the context again afterwards.
void paintEffect(const NodeImpl& node, const EffectLayer& layer, PaintContext& context);

} // namespace Tova2
