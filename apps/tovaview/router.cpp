#include "router.h"

#include "routegrid.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace TovaView {
namespace {

constexpr double stub = 14;           ///< how far a line goes straight on from its port
constexpr double shortestStub = 6;    ///< of a line that was there before
constexpr double clearance = 14;      ///< between a line and what it goes around
constexpr double sameLine = 0.5;      ///< so little is no reason for two corners
constexpr double laneWidth = 6;       ///< on each side of a line
constexpr std::size_t mostLanes = 16; ///< keeps the way quick to find
// What it costs to run into something, and on inside or too near.
constexpr double entryCost = 60, blockCost = 8, obstacleCost = 3, nearCost = 0.6, laneCost = 1.2;

double dot(const Point& a, const Point& b)
{
    return a.x * b.x + a.y * b.y;
}

/// Drops repeated points, and those between two pieces of one direction.
Points tidied(const Points& line)
{
    Points kept;
    for (const Point& point : line) {
        if (!kept.empty() && kept.back() == point)
            continue;
        const std::size_t count = kept.size();
        if (count > 1 &&
            ((kept[count - 2].x == kept[count - 1].x && kept[count - 1].x == point.x) ||
             (kept[count - 2].y == kept[count - 1].y && kept[count - 1].y == point.y)))
            kept.back() = point;
        else
            kept.push_back(point);
    }
    return kept;
}

/// Two ends that face each other with hardly an offset share a line.
void align(const ConnectorEnd& tail, ConnectorEnd& head)
{
    const Point offset = head.port - tail.port;
    if (dot(tail.outward, head.outward) != -1 || dot(offset, tail.outward) <= 0)
        return;
    if (tail.outward.x != 0 && std::abs(offset.y) < sameLine)
        head.port.y = tail.port.y;
    if (tail.outward.y != 0 && std::abs(offset.x) < sameLine)
        head.port.x = tail.port.x;
}

/// Where the straight beginnings of a line end.
struct Stubs {
    Point tail, head;
};

/// How far a line goes straight on from its port: a head wants room.
double stubOf(const ConnectorEnd& end)
{
    return std::max(stub, end.room + shortestStub);
}

/// Two ends that face each other nearby meet between them.
Stubs stubsOf(const ConnectorEnd& tail, const ConnectorEnd& head)
{
    Stubs stubs{tail.lineEnd() + tail.outward * stubOf(tail),
                head.lineEnd() + head.outward * stubOf(head)};
    const double distance = dot(head.lineEnd() - tail.lineEnd(), tail.outward);
    const double free = distance - tail.room - head.room;
    if (dot(tail.outward, head.outward) != -1 || !(distance > 0) ||
        distance > stubOf(tail) + stubOf(head))
        return stubs;
    const double share = free > 0 ? tail.room + free / 2 : distance / 2;
    stubs.tail = tail.lineEnd() + tail.outward * share;
    // Exactly level, or a corner more would be needed.
    (tail.outward.x != 0 ? stubs.head.x : stubs.head.y) =
        tail.outward.x != 0 ? stubs.tail.x : stubs.tail.y;
    return stubs;
}

/// The pieces of courses, as wide as others should keep away from them.
std::vector<Rect> lanesOf(const std::vector<Points>& courses)
{
    std::vector<Rect> lanes;
    for (const Points& course : courses)
        for (std::size_t i = 1; i < course.size() && lanes.size() < mostLanes; ++i)
            lanes.push_back(Rect::fromCorners(course[i - 1], course[i]).grown(laneWidth));
    return lanes;
}

std::vector<RouteGrid::Hindrance> hindrancesOf(const std::vector<Rect>& blocks,
                                               const std::vector<Rect>& obstacles,
                                               const std::vector<Rect>& lanes)
{
    std::vector<RouteGrid::Hindrance> hindrances;
    const auto add = [&](const Rect& rect, double cost) {
        hindrances.push_back({rect, entryCost, cost});
        hindrances.push_back({rect.grown(clearance), 0, nearCost});
    };
    for (const Rect& block : blocks)
        add(block, blockCost);
    for (const Rect& obstacle : obstacles)
        add(obstacle, obstacleCost);
    for (const Rect& lane : lanes)
        hindrances.push_back({lane, 0, laneCost});
    return hindrances;
}

void addLinesAround(RouteGrid& grid, const Rect& rect, double distance = clearance)
{
    const Rect around = rect.grown(distance);
    grid.addLines(around.topLeft());
    grid.addLines({around.right(), around.bottom()});
}

/// Half way between two blocks there is most room.
void addMiddleLines(RouteGrid& grid, const ConnectorEnd& tail, const ConnectorEnd& head)
{
    const Point a = tail.lineEnd(), b = head.lineEnd();
    grid.addLines((a + b) * 0.5);
    if (!tail.frame || !head.frame)
        return;
    const Rect &first = *tail.frame, &second = *head.frame;
    const auto middle = [](double low, double lowEnd, double high, double highEnd) {
        return lowEnd < high ? (lowEnd + high) / 2 : (highEnd + low) / 2;
    };
    grid.addLines({middle(first.x, first.right(), second.x, second.right()),
                   middle(first.y, first.bottom(), second.y, second.bottom())});
}

/// Moves the first point, and the second one so that the first piece keeps its direction.
void bend(Points& course, const Point& by)
{
    const bool isAcross = course[0].y == course[1].y;
    course[0] += by;
    course[1] += isAcross ? Point{0, by.y} : Point{by.x, 0};
}

bool runsThrough(const Rect& rect, const Point& a, const Point& b)
{
    const Rect piece = Rect::fromCorners(a, b), inside = rect.grown(-1);
    return inside.isValid() && piece.intersects(inside);
}

/// How far the line goes straight out of its port; negative when it turns into the block.
double stubOf(const Points& course, const ConnectorEnd& end)
{
    return dot(course[1] - course[0], end.outward);
}

/// The first pieces, as far as a move bends them. The very first one starts at the block, and may
/// start inside its frame.
bool isClear(const Points& course, const ConnectorEnd& end, const std::vector<Rect>& obstacles)
{
    for (std::size_t i = 0; i < std::min<std::size_t>(2, course.size() - 1); ++i) {
        const auto isHit = [&](const Rect& rect) {
            return runsThrough(rect, course[i], course[i + 1]);
        };
        if ((i > 0 && end.frame && isHit(*end.frame)) ||
            std::any_of(obstacles.begin(), obstacles.end(), isHit))
            return false;
    }
    return true;
}

} // namespace

Points route(const ConnectorEnd& tail, const ConnectorEnd& givenHead,
             const Surroundings& surroundings)
{
    ConnectorEnd head = givenHead;
    align(tail, head);
    std::vector<Rect> blocks;
    for (const auto& frame : {tail.frame, head.frame})
        if (frame)
            blocks.push_back(*frame);
    const auto [from, to] = stubsOf(tail, head);
    const std::vector<Rect> lanes = lanesOf(surroundings.courses);
    RouteGrid grid(hindrancesOf(blocks, surroundings.obstacles, lanes), (from + to) * 0.5);
    for (const std::vector<Rect>* rects : {&std::as_const(blocks), &surroundings.obstacles})
        for (const Rect& rect : *rects)
            addLinesAround(grid, rect);
    for (const Rect& lane : lanes)
        addLinesAround(grid, lane, 0);
    for (const Point& end : {from, to})
        addLinesAround(grid, {end.x, end.y, 0, 0});
    addMiddleLines(grid, tail, head);
    Points way = grid.find(from, tail.outward, to, -head.outward);
    way.insert(way.begin(), tail.lineEnd());
    way.push_back(head.lineEnd());
    return tidied(way);
}

Points stretched(Points course, const ConnectorEnd& tail, const Point& tailBy,
                 const ConnectorEnd& head, const Point& headBy, const Surroundings& surroundings)
{
    if (course.size() < 3 || !isRightAngled(course))
        return {};
    const double tailStub = std::min(shortestStub, stubOf(course, tail));
    std::reverse(course.begin(), course.end());
    const double headStub = std::min(shortestStub, stubOf(course, head));
    bend(course, headBy);
    std::reverse(course.begin(), course.end());
    bend(course, tailBy);
    std::reverse(course.begin(), course.end());
    course = tidied(course);
    if (course.size() < 2 || stubOf(course, head) < headStub ||
        !isClear(course, head.moved(headBy), surroundings.obstacles))
        return {};
    std::reverse(course.begin(), course.end());
    if (stubOf(course, tail) < tailStub ||
        !isClear(course, tail.moved(tailBy), surroundings.obstacles))
        return {};
    return course;
}

} // namespace TovaView
