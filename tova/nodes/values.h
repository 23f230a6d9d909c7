#pragma once

#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <cmath>

namespace Tova2 {

// Tests that every setter makes; exact, unlike the toolkit's own comparison operators.

inline bool isFinite(const QPointF& p)
{
    return std::isfinite(p.x()) && std::isfinite(p.y());
}

inline bool isFinite(const QRectF& r)
{
    return isFinite(r.topLeft()) && isFinite(r.bottomRight());
}

inline bool isSame(const QPointF& a, const QPointF& b)
{
    return a.x() == b.x() && a.y() == b.y();
}

inline bool isSame(const QRectF& a, const QRectF& b)
{
    return a.x() == b.x() && a.y() == b.y() && a.width() == b.width() && a.height() == b.height();
}

/// Equal within the tolerance that the library uses for lengths.
inline bool almostEqual(double a, double b)
{
    return a == b || std::abs(a - b) <= 0.0001;
}

/// The same wherever a view has been moved by whole pixels: halves go up on either side of 0, and
/// so does what rounding makes a little less.
inline double nearestPixel(double position)
{
    return std::floor(position + (0.5 + 1.0 / 4096));
}

/// Whether lengths are the same in all directions.
inline bool isUniform(const QTransform& t)
{
    const double x = std::hypot(t.m11(), t.m12()), y = std::hypot(t.m21(), t.m22());
    const double skew = t.m11() * t.m21() + t.m12() * t.m22();
    return std::abs(x - y) <= 1e-6 * x && std::abs(skew) <= 1e-6 * x * y;
}

/// An extent in one direction is enough: a stroke makes it visible.
inline bool isDrawable(const QRectF& r)
{
    return r.width() >= 0 && r.height() >= 0 && (r.width() > 0 || r.height() > 0);
}

} // namespace Tova2
