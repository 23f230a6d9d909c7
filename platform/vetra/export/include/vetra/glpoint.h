#pragma once

namespace Vetra {

/// A point or a displacement, y growing downwards. It carries no unit; scene code uses points (1/72
/// inch).
template <class T>
struct GLPoint {
    T x{}, y{};

    bool operator==(const GLPoint&) const = default;

    constexpr GLPoint operator+(const GLPoint& p) const noexcept { return {x + p.x, y + p.y}; }
    constexpr GLPoint operator-(const GLPoint& p) const noexcept { return {x - p.x, y - p.y}; }
    constexpr GLPoint operator-() const noexcept { return {-x, -y}; }
    constexpr GLPoint operator*(T factor) const noexcept { return {x * factor, y * factor}; }
    constexpr GLPoint& operator+=(const GLPoint& p) noexcept { return *this = *this + p; }
    constexpr GLPoint& operator-=(const GLPoint& p) noexcept { return *this = *this - p; }
};

} // namespace Vetra
