#include "vetra/transform.h"

#include <cmath>
#include <numbers>

namespace Vetra {

namespace {

Transform rotation(double sine, double cosine) noexcept
{
    return {cosine, sine, -sine, cosine, 0, 0};
}

} // namespace

Transform Transform::fromRotateDegrees(double degrees) noexcept
{
    const double turned = std::fmod(degrees, 360.0);
    if (turned == 0)
        return {};
    if (turned == 90 || turned == -270)
        return rotation(1, 0);
    if (turned == 180 || turned == -180)
        return rotation(0, -1);
    if (turned == 270 || turned == -90)
        return rotation(-1, 0);
    return fromRotateRadians(turned * std::numbers::pi / 180.0);
}

Transform Transform::fromRotateRadians(double radians) noexcept
{
    return rotation(std::sin(radians), std::cos(radians));
}

GLRect<double> Transform::mapRect(const GLRect<double>& r) const noexcept
{
    if (isTranslation())
        return {r.x + dx, r.y + dy, r.width, r.height};
    const auto a = map({r.x, r.y}), b = map({r.right(), r.y});
    const auto c = map({r.right(), r.bottom()}), d = map({r.x, r.bottom()});
    return GLRect<double>::fromCorners(a, c).united(GLRect<double>::fromCorners(b, d));
}

bool Transform::isFinite() const noexcept
{
    return std::isfinite(m11) && std::isfinite(m12) && std::isfinite(m21) && std::isfinite(m22) &&
           std::isfinite(dx) && std::isfinite(dy);
}

bool Transform::isInvertible() const noexcept
{
    const double det = determinant();
    return isFinite() && std::isfinite(det) && std::isfinite(1.0 / det);
}

Transform Transform::inverted() const noexcept
{
    if (!isInvertible())
        return {};
    const double inverse = 1.0 / determinant();
    return {m22 * inverse,
            -m12 * inverse,
            -m21 * inverse,
            m11 * inverse,
            (m21 * dy - m22 * dx) * inverse,
            (m12 * dx - m11 * dy) * inverse};
}

} // namespace Vetra
