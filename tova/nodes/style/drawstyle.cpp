#include "tova/nodes/style/drawstyle.h"

#include <algorithm>

namespace Tova2 {

// Every node stores one.
static_assert(sizeof(Effect) == 8 && sizeof(Stroke) == 32 && sizeof(Fill) == 16);
static_assert(sizeof(DrawStyle) <= 64);

namespace {

constexpr int opaqueAlpha = 255;

bool isOpaqueGradient(const Vetra::Gradient& gradient)
{
    const auto& stops = gradient.stops();
    return !stops.empty() && std::all_of(stops.begin(), stops.end(), [](const auto& stop) {
        return stop.color.alpha() == opaqueAlpha;
    });
}

} // namespace

bool DrawStyle::isOpaque() const noexcept
{
    if (!m_stroke.isNoStroke() && m_stroke.color().alpha() < opaqueAlpha)
        return false;
    switch (m_fill.style()) {
    case FillStyle::Solid:
        return m_fill.color().alpha() == opaqueAlpha;
    case FillStyle::Gradient:
        return isOpaqueGradient(m_fill.gradient());
    case FillStyle::NoFill:
        break;
    }
    return false;
}

} // namespace Tova2
