#pragma once

namespace Tova2 {

class NodeImpl;
class PaintContext;
struct EffectLayer;

/// Draws effects on one kind of output. The context is in the node; the painter's state is known to
/// it again afterwards.
class EffectPainter {
public:
    virtual void paint(const NodeImpl& node, const EffectLayer& layer, PaintContext& context) = 0;

protected:
    EffectPainter() = default;
    ~EffectPainter() = default;
    EffectPainter(const EffectPainter&) = delete;
    EffectPainter& operator=(const EffectPainter&) = delete;
};

} // namespace Tova2
