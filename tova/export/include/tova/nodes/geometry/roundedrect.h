#pragma once

#include "tova/typename.h"
#include "vetra/glrect.h"

#include <limits>

namespace Tova2 {

/// A rectangle whose corners are quarters of an ellipse. The radii are in the rectangle's units;
/// whoever draws it uses at most half the side.
class RoundedRect {
public:
    constexpr RoundedRect() noexcept = default;
    /// A radius that is negative or not finite counts as 0.
    constexpr RoundedRect(const Vetra::GLRect<double>& rect, double roundedX,
                          double roundedY) noexcept
        : m_rect(rect), m_roundedX(usable(roundedX)), m_roundedY(usable(roundedY))
    {}

    constexpr const Vetra::GLRect<double>& rect() const noexcept { return m_rect; }
    constexpr double roundedX() const noexcept { return m_roundedX; }
    constexpr double roundedY() const noexcept { return m_roundedY; }
    bool operator==(const RoundedRect&) const = default;

private:
    static constexpr double usable(double radius) noexcept
    {
        return radius > 0 && radius <= std::numeric_limits<double>::max() ? radius : 0;
    }

    Vetra::GLRect<double> m_rect;
    double m_roundedX = 0, m_roundedY = 0;

    TOVA_PLAIN_TYPE("Tova2.RoundedRect");
};

} // namespace Tova2
