#include "nodes/crossings/linepinxsegmentdecorators.h"

namespace Tova2 {

PathXSegmentDecorator::Clearance PinStyleXSegmentDecorator::pinClearance(double reach,
                                                                         bool vertical)
{
    if (vertical)
        return {reach, 0, reach, 0};
    return {0, reach, 0, reach};
}

void PinStyleXSegmentDecorator::cutForMark(const PinMark& mark)
{
    outline().pins.push_back(mark);
    outline().main.lineTo(mark.cutStart);
    outline().main.moveTo(mark.cutEnd);
}

bool LinePinXSegmentDecorator::decorate(const PathIntersection& crossing)
{
    if (!isVertical())
        return !isHorizontal();
    const auto [start, end] = gap(crossing, requiredBy(crossing));
    cutForMark({crossing.other, start, end, start, end});
    setCurrent(end);
    return true;
}

bool LineGradPinXSegmentDecorator::decorate(const PathIntersection& crossing)
{
    if (isHorizontal())
        return false;
    if (!isVertical()) {
        const QPointF point(crossing.x, crossing.y);
        cutForMark({crossing.other, point, point, point, point});
        return true;
    }
    const double half = context().widthOfCrossed(crossing) / context().scale() / 2;
    const auto [start, end] = gap(crossing, requiredBy(crossing));
    cutForMark({crossing.other, start, end, along(crossing, -half), along(crossing, half)});
    setCurrent(end);
    return true;
}

} // namespace Tova2
