#include "nodes/crossings/linepinxsegmentdecorators.h"

namespace Tova2 {

PathXSegmentDecorator::Clearance PinStyleXSegmentDecorator::pinClearance(double reach,
                                                                         bool vertical)
{
    if (vertical)
        return {reach, 0, reach, 0};
    return {0, reach, 0, reach};
}

// What begins within the last gap makes it longer: a line drawn back to there would close it.
void PinStyleXSegmentDecorator::cutForMark(const PinMark& mark)
{
    auto& [main, thinHops, pins] = outline();
    if (!m_hasCut || isPast(mark.cutStart.y(), pins.back().cutEnd.y())) {
        main.lineTo(mark.cutStart);
        pins.push_back(mark);
    }
    PinMark& last = pins.back();
    if (isPast(mark.cutEnd.y(), last.cutEnd.y()))
        last.cutEnd = mark.cutEnd;
    if (isPast(mark.end.y(), last.end.y()))
        last.end = mark.end;
    main.moveTo(last.cutEnd);
    m_hasCut = true;
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
