#include "coursepoint.h"

#include <algorithm>
#include <cmath>

namespace TovaView {
namespace {

double lengthOf(const Points& course)
{
    double length = 0;
    for (std::size_t i = 1; i < course.size(); ++i)
        length += distanceBetween(course[i - 1], course[i]);
    return length;
}

/// 0 at `a`, 1 at `b`.
double shareOf(const Point& point, const Point& a, const Point& b)
{
    const Point piece = b - a, offset = point - a;
    const double square = piece.x * piece.x + piece.y * piece.y;
    if (!(square > 0))
        return 0;
    return std::clamp((offset.x * piece.x + offset.y * piece.y) / square, 0.0, 1.0);
}

/// Cuts off the shares of a piece that lie outside of one pair of edges.
bool cutBetween(double from, double by, double low, double high, double& first, double& last)
{
    if (by == 0)
        return low <= from && from <= high;
    const double a = (low - from) / by, b = (high - from) / by;
    first = std::max(first, std::min(a, b));
    last = std::min(last, std::max(a, b));
    return first <= last;
}

} // namespace

bool entersRect(const Points& course, const Rect& rect)
{
    for (std::size_t i = 1; i < course.size(); ++i) {
        const Point from = course[i - 1], by = course[i] - from;
        double first = 0, last = 1;
        if (cutBetween(from.x, by.x, rect.x, rect.right(), first, last) &&
            cutBetween(from.y, by.y, rect.y, rect.bottom(), first, last))
            return true;
    }
    return false;
}

double distanceBetween(const Point& a, const Point& b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

CoursePoint nearestOn(const Points& course, const Point& point)
{
    CoursePoint best{course.front(), distanceBetween(course.front(), point), 0};
    const double whole = lengthOf(course);
    double before = 0;
    for (std::size_t i = 1; i < course.size(); ++i) {
        const Point &a = course[i - 1], &b = course[i];
        const double share = shareOf(point, a, b), length = distanceBetween(a, b);
        const Point place = a + (b - a) * share;
        if (const double distance = distanceBetween(place, point); distance < best.distance)
            best = {place, distance, (before + share * length) / whole};
        before += length;
    }
    return best;
}

Point pointAlong(const Points& course, double share)
{
    double rest = lengthOf(course) * share;
    for (std::size_t i = 1; i < course.size(); ++i) {
        const double length = distanceBetween(course[i - 1], course[i]);
        if (rest <= length && length > 0)
            return course[i - 1] + (course[i] - course[i - 1]) * (rest / length);
        rest -= length;
    }
    return course.back();
}

} // namespace TovaView
