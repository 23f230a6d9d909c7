#pragma once

// Conversions between Vetra's values and the toolkit's. With `vetra/qtevents.h`, which does
// the same for input, the only public header here that names toolkit types.

#include "vetra/color.h"
#include "vetra/cursor.h"
#include "vetra/font.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/gradient.h"
#include "vetra/image.h"
#include "vetra/imagecompositor.h"
#include "vetra/picture.h"
#include "vetra/pixmap.h"
#include "vetra/shape.h"
#include "vetra/size.h"
#include "vetra/transform.h"
#include "vetra/vetra_export.h"

#include <QBrush>
#include <QColor>
#include <QCursor>
#include <QFont>
#include <QImage>
#include <QPainterPath>
#include <QPicture>
#include <QPixmap>
#include <QPointF>
#include <QRectF>
#include <QSizeF>
#include <QTransform>

#include <functional>

class QPainter;

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

VETRA_EXPORT QFont toQt(const Font& font);
/// A size in pixels is taken for points; what `Font` does not know is left out.
VETRA_EXPORT Font fromQt(const QFont& font);

VETRA_EXPORT QCursor toQt(const Cursor& cursor);
/// The arrow for a cursor with pixels of its own.
VETRA_EXPORT Cursor fromQt(const QCursor& cursor);

/// A vector drawing at its natural size.
VETRA_EXPORT QImage toQt(const Image& image);
/// Never an empty holder: a picture that is null or not of an acceptable size gives a null image.
VETRA_EXPORT Holder<Image> fromQt(const QImage& image);
/// Fills `target` with the part `source` (in units of the image's size), a vector drawing without
/// going through pixels. Nothing for a null image or a rectangle that is
/// not valid or not finite.
VETRA_EXPORT void paint(QPainter& painter, const Image& image, const GLRect<double>& target,
                        const GLRect<double>& source);
/// Fills `target` with the whole image.
VETRA_EXPORT void paint(QPainter& painter, const Image& image, const GLRect<double>& target);

/// Fills `target` with the part `source` of a composition.
VETRA_EXPORT void paint(QPainter& painter, const ImageCompositor::Node& node,
                        const GLRect<double>& target, const GLRect<double>& source);
/// Fills `target` with the whole composition.
VETRA_EXPORT void paint(QPainter& painter, const ImageCompositor::Node& node,
                        const GLRect<double>& target);

VETRA_EXPORT QPixmap toQt(const Pixmap& pixmap);
VETRA_EXPORT Pixmap fromQt(const QPixmap& pixmap);

VETRA_EXPORT QPicture toQt(const Picture& picture);
/// Only for what this process recorded itself, never for a picture read from a file or a message.
VETRA_EXPORT Picture fromQt(const QPicture& picture);
/// Empty when `draw` is.
VETRA_EXPORT Picture recordPicture(const std::function<void(QPainter&)>& draw);
/// Draws it in the painter's coordinates, within its clip and with its opacity on top of what was
/// recorded; the rest of the painter's state plays no part, and all of it is as it was afterwards.
VETRA_EXPORT void play(QPainter& painter, const Picture& picture);

} // namespace Vetra
