#pragma once

#include <algorithm>
#include <cstdint>

namespace Vetra {

/// A colour without premultiplied alpha, eight bits a channel, packed as 0xAARRGGBB.
class Color {
public:
    /// Opaque black.
    constexpr Color() noexcept = default;
    /// Channels from 0 to 1, rounded to the nearest of 256 steps; values outside are clamped, NaN
    /// counts as 0.
    constexpr Color(double r, double g, double b, double a = 1.0) noexcept
        : m_packed(channel(a) << 24 | channel(r) << 16 | channel(g) << 8 | channel(b))
    {}
    static constexpr Color fromPacked(std::uint32_t packed) noexcept
    {
        Color color;
        color.m_packed = packed;
        return color;
    }

    constexpr std::uint32_t packed() const noexcept { return m_packed; }
    /// 0 to 255, like the other channels.
    constexpr int red() const noexcept { return static_cast<int>(m_packed >> 16 & 0xff); }
    constexpr int green() const noexcept { return static_cast<int>(m_packed >> 8 & 0xff); }
    constexpr int blue() const noexcept { return static_cast<int>(m_packed & 0xff); }
    constexpr int alpha() const noexcept { return static_cast<int>(m_packed >> 24); }

    bool operator==(const Color&) const = default;

private:
    static constexpr std::uint32_t channel(double value) noexcept
    {
        // The comparison is false for NaN as well.
        return value > 0.0 ? static_cast<std::uint32_t>(std::min(value, 1.0) * 255.0 + 0.5) : 0;
    }

    std::uint32_t m_packed = 0xff000000;
};

} // namespace Vetra
