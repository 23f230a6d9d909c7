#pragma once

#include "tova/typename.h"
#include "vetra/glrect.h"

namespace Tova2 {

/// The ellipse that fills a rectangle.
class Ellipse {
public:
    constexpr Ellipse() noexcept = default;
    constexpr explicit Ellipse(const Vetra::GLRect<double>& rect) noexcept : m_rect(rect) {}

    constexpr const Vetra::GLRect<double>& rect() const noexcept { return m_rect; }
    constexpr void setRect(const Vetra::GLRect<double>& rect) noexcept { m_rect = rect; }
    bool operator==(const Ellipse&) const = default;

private:
    Vetra::GLRect<double> m_rect;

    TOVA_PLAIN_TYPE("Tova2.Ellipse");
};

} // namespace Tova2
