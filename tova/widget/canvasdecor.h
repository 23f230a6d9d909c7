#pragma once

#include <QRect>
#include <QRectF>

class QPainter;
class QPalette;

namespace Tova2 {

// What lies over the layers of a canvas and is no part of its picture. View pixels.

/// What a marquee over `viewRect` covers, its frame included.
QRect marqueeExtent(const QRectF& viewRect);
void paintMarquee(QPainter& painter, const QRectF& viewRect, const QPalette& palette);
/// Around a node that has the keyboard, and what it covers.
void paintFocusOutline(QPainter& painter, const QRectF& node, const QPalette& palette);
QRect focusOutlineExtent(const QRectF& node);
/// Around a view that has the keyboard.
void paintFocusRing(QPainter& painter, const QRectF& view, const QPalette& palette);

} // namespace Tova2
