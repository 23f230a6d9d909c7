#pragma once

#include "tova/nodes/style/stroke.h"
#include "tova/nodes/style/strokeinsettype.h"

#include <QColor>
#include <QPointF>
#include <QRectF>

#include <boost/container/static_vector.hpp>

#include <cstdint>
#include <optional>

namespace Tova2 {

class Effect;

/// One step of drawing a node's effects, said so that an output may take it as a filter, as vectors
/// or as pixels. Lengths are in the node's own units, so that effects grow with it like its stroke;
/// directions are the scene's, so that the shadows of turned nodes fall like all others.
struct EffectLayer {
    enum class Kind : std::uint8_t {
        Blur,    ///< the silhouette in one colour, moved and softened
        Tint,    ///< the silhouette in one colour, as it is
        Outline, ///< a line along the silhouette's edge
        Wave,    ///< a wavy line below the node
    };

    Kind kind = Kind::Tint;
    bool isBelow = false;   ///< painted before the node instead of after it
    bool masksNode = false; ///< leaves out what lies under the node itself
    StrokeInsetType inset = StrokeInsetType::Center;
    QColor color;
    QPointF offset;
    double deviation = 0; ///< of the softening's normal distribution
    double gain = 1;      ///< coverage is multiplied by it, up to full coverage
    std::optional<Stroke> stroke;

    /// How far softening reaches: it is cut off there, lest a gain bring back what is too faint.
    double blurReach() const { return 3 * deviation; }
};

using EffectLayers = boost::container::static_vector<EffectLayer, 5>;

/// How far the mitres of a trace reach, in widths of it. Where it is drawn twice as wide for one
/// side of it, a mitre of one such width lies as far out as the hypotenuse over it and half of it.
namespace TraceReach {
inline constexpr double kMitreLimit = 1;
inline constexpr double kOfMitre = 2.24;
} // namespace TraceReach

/// What is to be drawn at a level of detail, in the order of painting. Values are brought into
/// their limits, and what cannot be seen is left out.
EffectLayers layersOf(const Effect& effect, std::uint8_t quality);

/// How far effects paint beyond the node itself, in the node's units at a view scale of 1.
struct EffectReach {
    QRectF shifted;           ///< around the origin, along the scene's axes
    double around = 0;        ///< to all sides of a box
    double aroundCorners = 0; ///< to all sides of what has corners of any angle
    double below = 0;         ///< further, below the node in its own coordinates
};
EffectReach reachOf(const Effect& effect, double viewScale);

} // namespace Tova2
