#pragma once

#include "vetra/glpoint.h"

#include <algorithm>

namespace Vetra {

/// Axis-aligned rectangle, y growing downwards. It carries no unit; scene code uses points.
/// Any combination of fields is a legal value; `isValid` tells the ones that enclose an area.
template <class T>
struct GLRect {
    T x{}, y{}, width{}, height{};

    /// The smallest rectangle that holds both points, in either order.
    static constexpr GLRect fromCorners(const GLPoint<T>& a, const GLPoint<T>& b) noexcept
    {
        const T left = std::min(a.x, b.x), top = std::min(a.y, b.y);
        return {left, top, std::max(a.x, b.x) - left, std::max(a.y, b.y) - top};
    }

    constexpr T right() const noexcept { return x + width; }
    constexpr T bottom() const noexcept { return y + height; }
    constexpr GLPoint<T> topLeft() const noexcept { return {x, y}; }
    constexpr GLPoint<T> center() const noexcept { return {x + width / 2, y + height / 2}; }

    /// False as well when a field is NaN, so callers need no test of their own.
    constexpr bool isValid() const noexcept { return width > 0 && height > 0 && x == x && y == y; }

    /// Closed edges: a point on the border is inside.
    constexpr bool contains(const GLPoint<T>& p) const noexcept
    {
        return p.x >= x && p.x <= right() && p.y >= y && p.y <= bottom();
    }
    /// Closed edges: a rectangle contains itself.
    constexpr bool contains(const GLRect& r) const noexcept
    {
        return r.x >= x && r.right() <= right() && r.y >= y && r.bottom() <= bottom();
    }
    /// Closed edges: rectangles that only touch intersect.
    constexpr bool intersects(const GLRect& r) const noexcept
    {
        return r.x <= right() && x <= r.right() && r.y <= bottom() && y <= r.bottom();
    }

    /// The bounding box of both, whether or not either is valid.
    constexpr GLRect united(const GLRect& r) const noexcept
    {
        const T left = std::min(x, r.x), top = std::min(y, r.y);
        return {left, top, std::max(right(), r.right()) - left,
                std::max(bottom(), r.bottom()) - top};
    }
    /// The common part; the zero rectangle when the two do not even touch.
    constexpr GLRect intersected(const GLRect& r) const noexcept
    {
        if (!intersects(r))
            return {};
        const T left = std::max(x, r.x), top = std::max(y, r.y);
        return {left, top, std::min(right(), r.right()) - left,
                std::min(bottom(), r.bottom()) - top};
    }
    constexpr GLRect translated(const GLPoint<T>& d) const noexcept
    {
        return {x + d.x, y + d.y, width, height};
    }
    /// Grown by `margin` on each side; a negative margin shrinks.
    constexpr GLRect grown(T margin) const noexcept
    {
        return {x - margin, y - margin, width + 2 * margin, height + 2 * margin};
    }

    bool operator==(const GLRect&) const = default;
};

} // namespace Vetra
