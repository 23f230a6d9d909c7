#pragma once

#include <QPointF>
#include <QRectF>

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

/// An extent in one direction is enough: a stroke makes it visible.
inline bool isDrawable(const QRectF& r)
{
    return r.width() >= 0 && r.height() >= 0 && (r.width() > 0 || r.height() > 0);
}

} // namespace Tova2
