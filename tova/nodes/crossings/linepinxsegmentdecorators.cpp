#include "nodes/crossings/linepinxsegmentdecorators.h"

namespace Tova2 {

PathXSegmentDecorator::Clearance PinStyleXSegmentDecorator::pinClearance(double reach,
                                                                         bool vertical)
{
    if (vertical)
        return {reach, 0, reach, 0};
    return {0, reach, 0, reach};
}

void PinStyleXSegmentDecorator::addMark(const PathIntersection& crossing, const QPointF& start,
                                        const QPointF& end)
{
    outline().pins.push_back({crossing.other, start, end});
}

bool LinePinXSegmentDecorator::decorate(const PathIntersection& crossing)
{
    if (!isVertical())
        return !isHorizontal();
    const auto [start, end] = gap(crossing, requiredBy(crossing));
    addMark(crossing, start, end);
    outline().main.lineTo(start);
    outline().main.moveTo(end);
    setCurrent(end);
    return true;
}

bool LineGradPinXSegmentDecorator::decorate(const PathIntersection& crossing)
{
    if (isHorizontal())
        return false;
    if (!isVertical()) {
        const QPointF point(crossing.x, crossing.y);
        addMark(crossing, point, point);
        outline().main.lineTo(point);
        outline().main.moveTo(point);
        return true;
    }
    const double half = context().widthOfCrossed(crossing) / context().scale() / 2;
    const auto [start, end] = gap(crossing, requiredBy(crossing));
    addMark(crossing, start, end);
    outline().main.lineTo(along(crossing, -half));
    outline().main.moveTo(along(crossing, half));
    setCurrent(end);
    return true;
}

} // namespace Tova2
