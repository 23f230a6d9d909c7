#include "tova/nodes/style/effect.h"

#include <algorithm>

namespace Tova2 {

namespace {

constexpr int spreadMaximum = 20;
constexpr int distanceMaximum = 100;
constexpr double gainMaximum = 100;

} // namespace

Effect::Shadow::Shadow(const Vetra::Color& shadowColor, std::int32_t shadowSpread,
                       const Vetra::GLPoint<int>& offset, bool mask)
    : color(shadowColor), spread(shadowSpread), distance(offset), maskOut(mask)
{
    enforceInputValueBoundaries();
}

Effect::Shadow::Shadow(double opacity, std::int32_t shadowSpread, const Vetra::GLPoint<int>& offset,
                       bool mask)
    : Shadow(Vetra::Color(0, 0, 0, opacity), shadowSpread, offset, mask)
{}

void Effect::Shadow::enforceInputValueBoundaries() noexcept
{
    spread = std::clamp(spread, 0, spreadMaximum);
    distance.x = std::clamp(distance.x, -distanceMaximum, distanceMaximum);
    distance.y = std::clamp(distance.y, -distanceMaximum, distanceMaximum);
}

Effect::Glow::Glow(const Vetra::Color& glowColor, std::int32_t glowSpread, bool mask,
                   double glowGain)
    : color(glowColor), spread(glowSpread), maskOut(mask), gain(glowGain)
{
    enforceInputValueBoundaries();
}

void Effect::Glow::enforceInputValueBoundaries() noexcept
{
    spread = std::clamp(spread, 0, spreadMaximum);
    // In this order `max` turns NaN into 0.
    gain = std::min(std::max(0.0, gain), gainMaximum);
}

} // namespace Tova2
