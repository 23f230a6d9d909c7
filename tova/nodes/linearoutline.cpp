#include "nodes/linearoutline.h"

#include <algorithm>
#include <cmath>

namespace Tova2 {

void LinearOutline::addCorner(const Cubic& corner, bool isStraight)
{
    if (isStraight)
        m_main.lineTo(corner.points[3]);
    else
        m_main.cubicTo(corner.points[1], corner.points[2], corner.points[3]);
}

Cubic cornerArc(const QPointF& corner, const QPointF& in, const QPointF& out, double cut)
{
    // Control points lie 4/3 tan(turn / 4) radii from the ends, and the radius is cut / tan(turn /
    // 2); in terms of the cosine of half the turn only:
    const double cosine = std::clamp(QPointF::dotProduct(in, out), -1.0, 1.0);
    const double half = std::sqrt((1 + cosine) / 2);
    const double reach = cut * 4 / 3 * half / (1 + half);
    const QPointF start = corner - in * cut, end = corner + out * cut;
    return {{start, start + in * reach, end - out * reach, end}};
}

} // namespace Tova2
