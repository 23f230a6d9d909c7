#pragma once

namespace Tova2 {

class NodeImpl;
class PaintContext;
struct EffectLayer;

/// Draws a soft layer of a box without corners or with round ones. False, and nothing drawn, for
/// what is no level box, shines through a mask, or is too soft for its pixels to be told apart.
bool paintSoftBox(const NodeImpl& node, const EffectLayer& layer, PaintContext& context);

} // namespace Tova2
