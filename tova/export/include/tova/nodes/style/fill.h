#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/color.h"
#include "vetra/gradient.h"

#include <cstdint>

namespace Tova2 {

// The enumerators' values are fixed and their names are the scripting keywords.
enum class FillStyle : std::uint32_t { NoFill, Solid, Gradient };

/// How an interior is painted. A plain value.
///
/// Where the screen shows few colours (see LodColorDepth) a gradient that is set gives way to its
/// first stop's colour: the style is then `Solid`. A gradient without stops stays as it is.
class TOVA_EXPORT Fill {
public:
    /// Of style `NoFill`, its colour opaque white.
    Fill() noexcept = default;
    Fill(const Vetra::Color& color,
         FillStyle style = FillStyle::Solid) noexcept; // NOLINT: a colour is a fill
    /// The colour means nothing while the style is `Gradient`.
    Fill(const Vetra::Gradient& gradient); // NOLINT: and so is a gradient
    /// One shared value for the life of the process.
    static const Fill& NoFill();

    Vetra::Color color() const noexcept { return m_color; }
    const Vetra::Color& colorConstRef() const noexcept { return m_color; }
    void setColor(const Vetra::Color& color) noexcept { m_color = color; }
    const Vetra::Gradient& gradient() const noexcept { return m_gradient; }
    /// Leaves the style alone, but for the change that few colours bring.
    void setGradient(const Vetra::Gradient& gradient);
    FillStyle style() const noexcept { return m_style; }
    void setStyle(FillStyle style) noexcept { m_style = style; }
    bool isNoFill() const noexcept { return m_style == FillStyle::NoFill; }

    /// Exact.
    bool operator==(const Fill&) const = default;

private:
    void overrideGradientIfLowColorMode();

    Vetra::Gradient m_gradient;
    Vetra::Color m_color = Vetra::Color::fromPacked(0xffffffff);
    FillStyle m_style = FillStyle::NoFill;

    TOVA_PLAIN_TYPE("Tova2.Fill");
};

} // namespace Tova2
