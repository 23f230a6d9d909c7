#pragma once

#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <array>
#include <cstddef>

namespace Tova2 {

enum class Corner : std::size_t { TopLeft, TopRight, BottomLeft, BottomRight };

/// A rectangle whose corners are quarters of circles of different radii, 0 for a square one.
struct CorneredRect {
    QRectF rect;
    std::array<double, 4> radii{}; ///< by `Corner`

    /// All radii smaller by one factor, so that no two of them are longer than the side they share.
    CorneredRect fitted() const;
    /// What lies within `distance`; square corners stay square.
    CorneredRect grown(double distance) const;
    /// Closed edges.
    bool contains(const QPointF& point) const;
    QPainterPath path() const;
};

} // namespace Tova2
