#pragma once

#include "diagram.h"

namespace TovaView {

/// Finds the cheapest way at right angles through a grid of lines: each corner costs a detour, and
/// so does what lies in the way.
class RouteGrid {
public:
    /// A rectangle that ways had better not enter.
    struct Hindrance {
        Rect rect;
        double entryCost = 0, cost = 0; ///< once, and for a point of length inside
    };

    /// Where two ways are as good, the one nearer to `middle` is taken.
    RouteGrid(std::vector<Hindrance> hindrances, const Point& middle)
        : m_hindrances(std::move(hindrances)), m_middle(middle)
    {}

    /// Ways may run at that x, and at that y.
    void addLines(const Point& at);
    /// Setting out from `from` in a direction, and reaching `to` in one; both directions are
    /// upright, of length 1. The points of all corners, the two ends included.
    Points find(const Point& from, const Point& direction, const Point& to, const Point& arrival);

private:
    struct Search;

    double costOf(const Point& a, const Point& b) const;

    std::vector<Hindrance> m_hindrances;
    Point m_middle;
    std::vector<double> m_xs, m_ys;
};

} // namespace TovaView
