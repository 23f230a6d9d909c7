#include "tova/nodes/style/fill.h"

#include "tova/nodes/style/lodcolordepth.h"

namespace Tova2 {

Fill::Fill(const Vetra::Color& color, FillStyle style) noexcept : m_color(color), m_style(style) {}

Fill::Fill(const Vetra::Gradient& gradient)
    : m_gradient(gradient), m_color(Vetra::Color::fromPacked(1)), m_style(FillStyle::Gradient)
{
    overrideGradientIfLowColorMode();
}

const Fill& Fill::NoFill()
{
    static const Fill none;
    return none;
}

void Fill::setGradient(const Vetra::Gradient& gradient)
{
    m_gradient = gradient;
    overrideGradientIfLowColorMode();
}

void Fill::overrideGradientIfLowColorMode()
{
    if (m_gradient.isEmpty() || !LodColorDepth::isLow())
        return;
    m_color = m_gradient.stops().front().color;
    m_style = FillStyle::Solid;
}

} // namespace Tova2
