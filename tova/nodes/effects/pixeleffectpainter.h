#pragma once

#include "nodes/effects/effectpainter.h"

namespace Tova2 {

/// Softens pictures of silhouettes, and keeps them; draws everything else as lines and areas.
class PixelEffectPainter final : public EffectPainter {
public:
    static PixelEffectPainter& instance();

    void paint(const NodeImpl& node, const EffectLayer& layer, PaintContext& context) override;
};

} // namespace Tova2
