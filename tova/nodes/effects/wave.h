#pragma once

#include <QPainterPath>
#include <QRectF>

namespace Tova2::Wave {

// In a node's units.
constexpr double kPeriod = 4, kSwing = 2, kPen = 0.9, kGap = 0.5;
/// From the node's lower edge to the wave's.
constexpr double kHeight = kGap + kSwing + kPen;

/// Along the lower edge of `rect`, as far as it lies between `left` and `right`; the crests lie
/// where they would without these bounds.
QPainterPath below(const QRectF& rect, double left, double right);
/// In the wave's place where it is too small or too long to be told from a line.
QRectF bandBelow(const QRectF& rect);

} // namespace Tova2::Wave
