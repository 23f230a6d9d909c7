#pragma once

namespace Tova2 {

class NodeImpl;
class PaintContext;
struct EffectLayer;

/// Draws a soft layer of a box without corners or with round ones, from pieces that boxes of any
/// size share. False, and nothing drawn, for what is no level box, shines through, or is too small
/// or too soft.
bool paintSoftBox(const NodeImpl& node, const EffectLayer& layer, PaintContext& context);

} // namespace Tova2
