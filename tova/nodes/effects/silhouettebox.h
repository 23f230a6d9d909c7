#pragma once

#include <QPainterPath>
#include <QRectF>

#include <optional>

namespace Tova2 {

class DrawStyle;

/// A level rectangle in local coordinates, with corners that are round by a radius or sharp.
struct SilhouetteBox {
    QRectF rect;
    double radius = 0;

    QPainterPath path() const;
    /// With its edges moved outwards; inwards down to nothing.
    SilhouetteBox grown(double by) const;

    /// Of a box with its stroke.
    static SilhouetteBox around(const QRectF& rect, double radius, const DrawStyle& style,
                                double viewScale);
    /// The same if the style paints all of it.
    static std::optional<SilhouetteBox> filling(const QRectF& rect, double radius,
                                                const DrawStyle& style, double viewScale);
};

} // namespace Tova2
