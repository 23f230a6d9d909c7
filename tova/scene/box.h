#pragma once

#include <QRectF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Tova2 {

/// A closed rectangle by its edges, made for scans: tests are four comparisons, and neither
/// "nowhere" nor "everywhere" needs a case of its own.
struct Box {
    static constexpr double kInfinity = std::numeric_limits<double>::infinity();

    double left = kInfinity, top = kInfinity, right = -kInfinity, bottom = -kInfinity;

    static constexpr Box nowhere() { return {}; }
    static constexpr Box everywhere() { return {-kInfinity, -kInfinity, kInfinity, kInfinity}; }
    /// Everywhere for what is out of the range of numbers.
    static Box of(const QRectF& r)
    {
        const Box box{r.left(), r.top(), r.right(), r.bottom()};
        return std::isfinite(box.left) && std::isfinite(box.top) && std::isfinite(box.right) &&
                       std::isfinite(box.bottom)
                   ? box
                   : everywhere();
    }

    bool operator==(const Box&) const = default;
    bool isNowhere() const { return !(left <= right); }
    QRectF rect() const { return {left, top, right - left, bottom - top}; }
    bool touches(const Box& b) const
    {
        return (left <= b.right) & (b.left <= right) & (top <= b.bottom) & (b.top <= bottom);
    }
    bool contains(const Box& b) const
    {
        return left <= b.left && top <= b.top && b.right <= right && b.bottom <= bottom;
    }
    void unite(const Box& b)
    {
        left = std::min(left, b.left);
        top = std::min(top, b.top);
        right = std::max(right, b.right);
        bottom = std::max(bottom, b.bottom);
    }
    Box grown(double margin) const
    {
        return {left - margin, top - margin, right + margin, bottom + margin};
    }
};

} // namespace Tova2
