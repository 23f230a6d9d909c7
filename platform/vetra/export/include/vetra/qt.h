#pragma once

/// Conversions between Vetra's values and the toolkit's. The only public header here that names
/// toolkit types.

#include "vetra/color.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/gradient.h"
#include "vetra/shape.h"
#include "vetra/size.h"
#include "vetra/transform.h"
#include "vetra/vetra_export.h"

#include <QBrush>
#include <QColor>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

namespace Vetra {

inline QPointF toQt(const GLPoint<double>& p)
{
    return {p.x, p.y};
}
inline QPoint toQt(const GLPoint<int>& p)
{
    return {p.x, p.y};
}
inline GLPoint<double> fromQt(const QPointF& p)
{
    return {p.x(), p.y()};
}
inline GLPoint<int> fromQt(const QPoint& p)
{
    return {p.x(), p.y()};
}

inline QSizeF toQt(const Size<double>& size)
{
    return {size.width, size.height};
}
inline QSize toQt(const Size<int>& size)
{
    return {size.width, size.height};
}
inline Size<double> fromQt(const QSizeF& size)
{
    return {size.width(), size.height()};
}
inline Size<int> fromQt(const QSize& size)
{
    return {size.width(), size.height()};
}

inline QRectF toQt(const GLRect<double>& r)
{
    return {r.x, r.y, r.width, r.height};
}
inline QRect toQt(const GLRect<int>& r)
{
    return {r.x, r.y, r.width, r.height};
}
inline GLRect<double> fromQt(const QRectF& r)
{
    return {r.x(), r.y(), r.width(), r.height()};
}
inline GLRect<int> fromQt(const QRect& r)
{
    return {r.x(), r.y(), r.width(), r.height()};
}

inline QColor toQt(const Color& color)
{
    return QColor::fromRgba(color.packed());
}
/// Rounded to eight bits a channel; an invalid colour becomes opaque black.
inline Color fromQt(const QColor& color)
{
    return Color::fromPacked(color.rgba());
}

inline QTransform toQt(const Transform& t)
{
    return {t.m11, t.m12, t.m21, t.m22, t.dx, t.dy};
}
/// The affine part; perspective is left out.
inline Transform fromQt(const QTransform& t)
{
    return {t.m11(), t.m12(), t.m21(), t.m22(), t.dx(), t.dy()};
}

/// No brush when the gradient is empty.
VETRA_EXPORT QBrush toQt(const Gradient& gradient);
/// Empty for a gradient of no type or with coordinates that are not finite. A focal radius is left
/// out.
VETRA_EXPORT Gradient fromQt(const QGradient& gradient);

VETRA_EXPORT QPainterPath toQt(const Shape& shape);
/// Empty when any element of the path is not finite.
VETRA_EXPORT Shape fromQt(const QPainterPath& path);

} // namespace Vetra
