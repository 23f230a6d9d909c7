#include "connectorend.h"

#include <algorithm>
#include <cmath>

namespace TovaView {
namespace {

constexpr int stepsAPiece = 8;   ///< of a curve
constexpr double sameSpot = 0.5; ///< layouts print few digits
/// A line may stop this far from its block and belong to it still: outlines are wide.
constexpr double furthestPort = 6;

bool isNear(const Point& a, const Point& b)
{
    return std::abs(a.x - b.x) < sameSpot && std::abs(a.y - b.y) < sameSpot;
}

void addPoint(Points& course, const Point& point)
{
    if (course.empty() || course.back() != point)
        course.push_back(point);
}

Point onCurve(const Point* piece, double t)
{
    const double s = 1 - t;
    return piece[0] * (s * s * s) + piece[1] * (3 * s * s * t) + piece[2] * (3 * s * t * t) +
           piece[3] * (t * t * t);
}

void addLine(Points& course, const Figure& line)
{
    if (line.outline != Outline::Bezier) {
        for (const Point& point : line.points)
            addPoint(course, point);
        return;
    }
    addPoint(course, line.points.front());
    for (std::size_t i = 0; i + 3 < line.points.size(); i += 3) {
        for (int step = 1; step < stepsAPiece; ++step)
            addPoint(course, onCurve(&line.points[i], double(step) / stepsAPiece));
        addPoint(course, line.points[i + 3]);
    }
}

/// Along one axis, whichever is nearer to the direction.
Point upright(const Point& direction)
{
    if (std::abs(direction.x) > std::abs(direction.y))
        return {std::copysign(1.0, direction.x), 0};
    return {0, std::copysign(1.0, direction.y)};
}

/// Out of the side that the point is nearest to.
Point sideAt(const Rect& frame, const Point& point)
{
    const Point fromCentre = point - frame.center();
    return upright({fromCentre.x * frame.height, fromCentre.y * frame.width});
}

std::optional<Rect> frameOf(const Diagram& diagram, int block)
{
    if (block < 0 || static_cast<std::size_t>(block) >= diagram.blocks.size())
        return {};
    const Block& found = diagram.blocks[static_cast<std::size_t>(block)];
    if (found.drawing.empty() || !found.frame.isValid())
        return {};
    return found.frame;
}

/// `end` is the line's, `next` the point that the line leads to from there.
ConnectorEnd endAt(const Diagram& diagram, int block, const std::optional<Ending>& ending,
                   const Point& end, const Point& next)
{
    ConnectorEnd result;
    result.port = end;
    const Point along = next - end;
    const bool isAlongAxis = along.x == 0 || along.y == 0;
    if (ending && ending->isOnLine() && ending->isBeyond) {
        result.port = ending->tip;
        result.gap = ending->length;
    } else if (ending && ending->isOnLine()) {
        result.room = ending->length;
    }
    result.outward = upright(along);
    const auto frame = frameOf(diagram, block);
    if (frame && frame->grown(furthestPort).contains(result.port)) {
        result.block = block;
        result.frame = frame;
        if (!isAlongAxis)
            result.outward = sideAt(*frame, result.port);
    }
    return result;
}

} // namespace

ConnectorEnd ConnectorEnd::moved(const Point& by) const
{
    ConnectorEnd result = *this;
    result.port += by;
    if (result.frame)
        result.frame = result.frame->translated(by);
    return result;
}

Points courseOf(const Connector& connector)
{
    Points course;
    for (const Figure& line : connector.lines) {
        if (!isOpenLine(line))
            continue;
        if (!course.empty() && !isNear(course.back(), line.points.front()))
            break;
        addLine(course, line);
    }
    return course;
}

bool isRightAngled(const Points& course)
{
    return std::adjacent_find(course.begin(), course.end(), [](const Point& a, const Point& b) {
               return a.x != b.x && a.y != b.y;
           }) == course.end();
}

ConnectorEnd tailEndOf(const Diagram& diagram, const Connector& connector, const Points& course)
{
    return endAt(diagram, connector.tail, connector.tailEnding, course[0], course[1]);
}

ConnectorEnd headEndOf(const Diagram& diagram, const Connector& connector, const Points& course)
{
    return endAt(diagram, connector.head, connector.headEnding, course.back(),
                 course[course.size() - 2]);
}

} // namespace TovaView
