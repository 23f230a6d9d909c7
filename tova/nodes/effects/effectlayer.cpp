#include "nodes/effects/effectlayer.h"

#include "nodes/effects/wave.h"
#include "nodes/pen.h"
#include "nodes/simplification.h"

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

/// A plain outline that looks from afar like a glow.
void addRim(EffectLayers& layers, Effect::Glow glow)
{
    glow.enforceInputValueBoundaries();
    const Vetra::Color color = faded(glow.color, std::min(glow.gain, 1.0));
    if (!isSeen(color) || glow.spread == 0)
        return;
    EffectLayer& layer = layers.emplace_back();
    layer.kind = EffectLayer::Kind::Outline;
    layer.isBelow = true;
    layer.color = Vetra::toQt(color);
    layer.stroke = Stroke(color, glow.spread / kSpreadsPerDeviation, StrokeStyle::SolidLine,
                          StrokeCapStyle::FlatCap, StrokeJoinStyle::RoundJoin, nullptr);
    layer.inset = StrokeInsetType::Outer;
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
    // Below the node, whose edge it only touches: above, both would be seen through its first
    // pixels.
    layers.back().isBelow = trace.insetType == StrokeInsetType::Outer;
}

bool isMitred(const Stroke& stroke)
{
    return stroke.joinStyle() == StrokeJoinStyle::MiterJoin ||
           stroke.joinStyle() == StrokeJoinStyle::SvgMiterJoin;
}

void addTraceReach(EffectReach& reach, const Effect::Trace& trace, double viewScale)
{
    if (trace.insetType == StrokeInsetType::Inner)
        return;
    const double share = trace.insetType == StrokeInsetType::Outer ? 1 : 0.5;
    reach.around = share * drawnWidth(trace.stroke, viewScale);
    reach.aroundCorners = reach.around * (isMitred(trace.stroke) ? TraceReach::kOfMitre : 1);
}

} // namespace

// Zoomed out far, what is soft becomes lines or goes: it would be a few pixels wide.
EffectLayers layersOf(const Effect& effect, std::uint8_t quality)
{
    EffectLayers layers;
    if (effect.shadow() && quality > 0)
        addShadow(layers, *effect.shadow());
    if (effect.glow() && quality > 0)
        addGlow(layers, *effect.glow());
    else if (effect.glow())
        addRim(layers, *effect.glow());
    if (effect.overlay())
        addLine(layers, EffectLayer::Kind::Tint, effect.overlay()->color);
    if (effect.trace())
        addTrace(layers, *effect.trace());
    if (effect.squiggly())
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
        addTraceReach(reach, *effect.trace(), viewScale);
    return reach;
}

} // namespace Tova2
