#pragma once

#include "diagram.h"

namespace TovaView {

/// A place on a line of straight pieces.
struct CoursePoint {
    Point point;
    double distance = 0; ///< from what was asked about
    double share = 0;    ///< of the line's length that lies before it
};

/// `course` has a point or more.
CoursePoint nearestOn(const Points& course, const Point& point);
Point pointAlong(const Points& course, double share);

/// Whether a piece of it passes through the rectangle, or ends in it.
bool entersRect(const Points& course, const Rect& rect);

double distanceBetween(const Point& a, const Point& b);

} // namespace TovaView
