#include "nodes/effects/effectlayer.h"

#include "nodes/effects/wave.h"

#include "tova/nodes/style/effect.h"
#include "vetra/qt.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

namespace {

// The spread is how far softening is seen; the rest of its reach is too faint.
constexpr double kSpreadsPerDeviation = 2;

bool isSeen(const Vetra::Color& color)
{
    return color.alpha() > 0;
}

bool isSeen(const Effect::Trace& trace)
{
    return !trace.stroke.isNoStroke() && isSeen(trace.stroke.color()) &&
           trace.stroke.logicalWidth() >= 0 && std::isfinite(trace.stroke.logicalWidth());
}

void addShadow(EffectLayers& layers, Effect::Shadow shadow)
{
    if (!isSeen(shadow.color))
        return;
    shadow.enforceInputValueBoundaries();
    EffectLayer& layer = layers.emplace_back();
    layer.kind = EffectLayer::Kind::Blur;
    layer.isBelow = true;
    layer.masksNode = shadow.maskOut;
    layer.color = Vetra::toQt(shadow.color);
    layer.offset = QPointF(shadow.distance.x, shadow.distance.y);
    layer.deviation = shadow.spread / kSpreadsPerDeviation;
}

void addGlow(EffectLayers& layers, Effect::Glow glow)
{
    glow.enforceInputValueBoundaries();
    if (!isSeen(glow.color) || glow.gain == 0)
        return;
    EffectLayer& layer = layers.emplace_back();
    layer.kind = EffectLayer::Kind::Blur;
    layer.isBelow = true;
    layer.masksNode = glow.maskOut;
    layer.color = Vetra::toQt(glow.color);
    layer.deviation = glow.spread / kSpreadsPerDeviation;
    layer.gain = glow.gain;
}

void addLine(EffectLayers& layers, EffectLayer::Kind kind, const Vetra::Color& color)
{
    if (!isSeen(color))
        return;
    EffectLayer& layer = layers.emplace_back();
    layer.kind = kind;
    layer.color = Vetra::toQt(color);
}

void addTrace(EffectLayers& layers, const Effect::Trace& trace)
{
    if (!isSeen(trace))
        return;
    addLine(layers, EffectLayer::Kind::Outline, trace.stroke.color());
    layers.back().stroke = trace.stroke;
    layers.back().inset = trace.insetType;
    // The node's own stroke stays whole.
    layers.back().isBelow = trace.insetType == StrokeInsetType::Outer;
}

double traceReach(const Effect::Trace& trace, double viewScale)
{
    const double width = trace.stroke.width(viewScale);
    switch (trace.insetType) {
    case StrokeInsetType::Inner:
        return 0;
    case StrokeInsetType::Outer:
        return width;
    default:
        return width / 2;
    }
}

} // namespace

// Zoomed out far, only what changes a node's colour is left: all else is too small to be read.
EffectLayers layersOf(const Effect& effect, std::uint8_t quality)
{
    EffectLayers layers;
    if (effect.shadow() && quality > 0)
        addShadow(layers, *effect.shadow());
    if (effect.glow() && quality > 0)
        addGlow(layers, *effect.glow());
    if (effect.overlay())
        addLine(layers, EffectLayer::Kind::Tint, effect.overlay()->color);
    if (effect.trace() && quality > 0)
        addTrace(layers, *effect.trace());
    if (effect.squiggly() && quality > 0)
        addLine(layers, EffectLayer::Kind::Wave, effect.squiggly()->color);
    return layers;
}

EffectReach reachOf(const Effect& effect, double viewScale)
{
    EffectReach reach;
    double left = 0, top = 0, right = 0, bottom = 0;
    for (const EffectLayer& layer : layersOf(effect, 2)) {
        if (layer.kind == EffectLayer::Kind::Wave)
            reach.below = Wave::kHeight;
        if (layer.kind != EffectLayer::Kind::Blur)
            continue;
        left = std::min(left, layer.offset.x() - layer.blurReach());
        top = std::min(top, layer.offset.y() - layer.blurReach());
        right = std::max(right, layer.offset.x() + layer.blurReach());
        bottom = std::max(bottom, layer.offset.y() + layer.blurReach());
    }
    reach.shifted.setCoords(left, top, right, bottom);
    if (effect.trace() && isSeen(*effect.trace()))
        reach.around = traceReach(*effect.trace(), viewScale);
    return reach;
}

} // namespace Tova2
