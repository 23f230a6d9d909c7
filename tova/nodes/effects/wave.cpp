#include "nodes/effects/wave.h"

#include <algorithm>
#include <cmath>

namespace Tova2::Wave {

namespace {

constexpr double kMiddle = kGap + kPen / 2 + kSwing / 2;
constexpr double kInset = kPen / 2; // round ends stay within the node's width

} // namespace

QPainterPath below(const QRectF& rect, double left, double right)
{
    const double start = rect.left() + kInset, end = std::max(start, rect.right() - kInset);
    const double step = kPeriod / 2, y = rect.bottom() + kMiddle;
    // Its ends are not to be seen where it goes on.
    const double before = std::max(0.0, std::floor((left - start) / kPeriod) - 1);
    double x = start + before * kPeriod;
    QPainterPath path(QPointF(x, y));
    for (double swing = kSwing; x < std::min(end, right + kPeriod); swing = -swing) {
        const double next = std::min(x + step, end), share = (next - x) / step;
        // An arch's control point lies twice as high as the arch.
        path.quadTo((x + next) / 2, y - swing * share, next, y);
        x = next;
    }
    return path;
}

QRectF bandBelow(const QRectF& rect)
{
    return {rect.left(), rect.bottom() + kMiddle - kPen / 2, rect.width(), kPen};
}

} // namespace Tova2::Wave
