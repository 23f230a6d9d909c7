#include "nodes/crossings/linehopxsegmentdecorator.h"

#include <algorithm>

namespace Tova2 {

bool LineHopXSegmentDecorator::decorate(const PathIntersection& crossing)
{
    if (isHorizontal())
        breakLine(crossing);
    else if (isVertical())
        hop(crossing);
    return isVertical();
}

PathXSegmentDecorator::Clearance LineHopXSegmentDecorator::baseClearance(bool vertical) const
{
    constexpr double kReach = 3.5;
    if (vertical)
        return {kReach, 0, kReach, kReach};
    return {kReach, kReach, 0, kReach};
}

PathXSegmentDecorator::Clearance LineHopXSegmentDecorator::clearance(double widthA, double widthB,
                                                                     bool vertical) const
{
    Clearance sides = baseClearance(vertical);
    for (double& side : sides)
        side += widthA / 2 + widthB / 2;
    return damped(sides);
}

void LineHopXSegmentDecorator::breakLine(const PathIntersection& crossing)
{
    const double crossedWidth = context().widthOfCrossed(crossing);
    const double crossed = crossedWidth / context().scale();
    const double own = context().ownWidth / context().scale();
    const bool isThin = crossedWidth <= 1;
    const double half = (isThin ? std::max(own, crossed) : crossed) * 0.5;
    const double back = isThin ? own / 3 : 0;
    const double middle = crossing.x + clearance(crossedWidth, context().ownWidth, true)[3] - back;
    const double before = runsForward() ? middle - half : middle + half;
    const double after = runsForward() ? middle + half : middle - half;
    if (!m_gapEnd || isPast(before, *m_gapEnd))
        outline().main.lineTo(before, crossing.y);
    if (!m_gapEnd || isPast(after, *m_gapEnd))
        m_gapEnd = after;
    outline().main.moveTo(*m_gapEnd, crossing.y);
}

void LineHopXSegmentDecorator::hop(const PathIntersection& crossing)
{
    const Drawn drawn{crossing.x, crossing.y,
                      clearance(context().ownWidth, context().widthOfCrossed(crossing), true)};
    const bool isApart = context().ownWidth <= 1 && context().scale() >= 1;
    const auto [entry, exit] = gap(crossing, drawn.clearance);
    const double bulge =
        crossing.x + drawn.clearance[3] + context().ownWidth / context().scale() * 0.5;
    QPainterPath& main = outline().main;
    QPainterPath& curves = isApart ? outline().thinHops : main;
    QPointF control(bulge, entry.y());
    if (m_last && meetsLast(drawn)) {
        control = mergeWithLast(curves, drawn);
    } else {
        main.lineTo(entry);
        if (isApart)
            curves.moveTo(entry);
    }
    curves.cubicTo(control, {bulge, exit.y()}, exit);
    if (isApart)
        main.moveTo(exit);
    m_last = drawn;
    setCurrent(exit);
}

bool LineHopXSegmentDecorator::meetsLast(const Drawn& current) const
{
    const auto areApart = [](const Drawn& one, const Drawn& other) {
        return one.x + one.clearance[3] < other.x - other.clearance[1] ||
               one.y + one.clearance[2] < other.y - other.clearance[0];
    };
    return !areApart(*m_last, current) && !areApart(current, *m_last);
}

QPointF LineHopXSegmentDecorator::mergeWithLast(QPainterPath& curves, const Drawn& current) const
{
    const QPointF point(current.x + (m_last->clearance[3] + current.clearance[3]) * 0.5,
                        current.y - (current.y - m_last->y) * 0.5);
    const int last = curves.elementCount() - 1;
    curves.setElementPositionAt(last - 1, point.x(), point.y());
    curves.setElementPositionAt(last, point.x(), point.y());
    return point;
}

} // namespace Tova2
