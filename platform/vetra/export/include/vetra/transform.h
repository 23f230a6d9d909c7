#pragma once

#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/vetra_export.h"

namespace Vetra {

/// Affine map of the plane: x' = m11 x + m21 y + dx, y' = m12 x + m22 y + dy.
struct VETRA_EXPORT Transform {
    double m11 = 1, m12 = 0, m21 = 0, m22 = 1, dx = 0, dy = 0;

    static constexpr Transform fromTranslate(double dx, double dy) noexcept
    {
        return {1, 0, 0, 1, dx, dy};
    }
    static constexpr Transform fromScale(double sx, double sy) noexcept
    {
        return {sx, 0, 0, sy, 0, 0};
    }
    /// Positive angles turn clockwise on screen, since y grows downwards. Multiples of a right
    /// angle are exact.
    static Transform fromRotateDegrees(double degrees) noexcept;
    static Transform fromRotateRadians(double radians) noexcept;

    constexpr GLPoint<double> map(const GLPoint<double>& p) const noexcept
    {
        return {m11 * p.x + m21 * p.y + dx, m12 * p.x + m22 * p.y + dy};
    }
    /// The bounding box of the mapped rectangle.
    GLRect<double> mapRect(const GLRect<double>& r) const noexcept;

    constexpr double determinant() const noexcept { return m11 * m22 - m12 * m21; }
    /// Finite, with a determinant that can be divided by.
    bool isInvertible() const noexcept;
    bool isFinite() const noexcept;
    constexpr bool isIdentity() const noexcept { return *this == Transform{}; }
    constexpr bool isTranslation() const noexcept
    {
        return m11 == 1 && m12 == 0 && m21 == 0 && m22 == 1;
    }
    /// The identity where there is no inverse; `isInvertible` tells.
    Transform inverted() const noexcept;
    /// Left to right: `a * b` maps by `a` first, then by `b`.
    constexpr Transform operator*(const Transform& b) const noexcept
    {
        return {m11 * b.m11 + m12 * b.m21,      m11 * b.m12 + m12 * b.m22,
                m21 * b.m11 + m22 * b.m21,      m21 * b.m12 + m22 * b.m22,
                dx * b.m11 + dy * b.m21 + b.dx, dx * b.m12 + dy * b.m22 + b.dy};
    }

    bool operator==(const Transform&) const = default;
};

} // namespace Vetra
