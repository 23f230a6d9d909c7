#pragma once

#include "tova/nodes/geometry/ellipse.h"
#include "tova/nodes/geometry/roundedrect.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

#include "vetra/glpoint.h"
#include "vetra/glrect.h"
#include "vetra/transform.h"

#include <boost/smart_ptr/intrusive_ptr.hpp>

#include <vector>

class QPainterPath;
class QRectF;

namespace Vetra {
class Shape;
}

namespace Tova2 {

class BoundsImpl;
TOVA_EXPORT void intrusive_ptr_add_ref(const BoundsImpl* impl) noexcept;
TOVA_EXPORT void intrusive_ptr_release(const BoundsImpl* impl) noexcept;

/// A region of the plane: the bounds of a node, the area of a repaint, the shape of a hit test. It
/// is a bare rectangle for as long as that is exact; else a rectangle with an immutable, shared
/// description of what lies in it.
///
/// Edges are closed. Anything made of a point or path that is not finite is empty; beyond
/// coordinates of 1e120 only rectangles are left. Where an exact answer on paths would take too
/// long (see limits.h) the answer errs to the larger region: a union is its bounding rectangle, an
/// intersection that of the rectangles, regions intersect, and one contains the other only if it
/// contains its rectangle.
class TOVA_EXPORT Bounds {
public:
    using Point = Vetra::GLPoint<double>;
    using Rect = Vetra::GLRect<double>;

    Bounds() noexcept = default;
    Bounds(const Rect& rect) noexcept : m_rect(rect) {}
    Bounds(const QRectF& rect) noexcept;
    /// A quadrilateral, of corners in order of its outline; a bare rectangle where it is one within
    /// 0.0001.
    Bounds(const Point& p1, const Point& p2, const Point& p3, const Point& p4);
    /// A closed polygon, filled by its winding; empty for fewer than three points.
    explicit Bounds(const std::vector<Point>& polygon);
    /// A lone rectangle is taken as it is; of several the invalid are left out, and so is each that
    /// lies in the bounding box of those before it, even in a gap between them.
    explicit Bounds(const std::vector<Rect>& rects);
    Bounds(const Ellipse& ellipse);
    Bounds(const RoundedRect& roundedRect);
    Bounds(const QPainterPath& path);
    Bounds(const Vetra::Shape& shape);

    const Rect& boundingRect() const noexcept { return m_rect; }
    /// One for each connected part.
    std::vector<Rect> boundingRects() const;
    /// No area; the rectangle may hold a position all the same.
    bool isEmpty() const noexcept { return !m_rect.isValid(); }
    bool isOnlyRect() const noexcept { return !m_impl; }
    /// Widens the region to its bounding rectangle.
    void simplifyToRect() noexcept { m_impl.reset(); }
    void clear() noexcept { *this = Bounds(); }

    bool contains(const Bounds& other) const;
    bool contains(const Point& point) const;
    bool intersectsWith(const Bounds& other) const;
    /// Whether anything lies within `tolerance` of the point.
    bool intersectsWith(const Point& point, double tolerance) const;

    void intersectWith(const Bounds& other) { *this = intersectedWith(other); }
    Bounds intersectedWith(const Bounds& other) const;
    void unionWith(const Bounds& other) { *this = unionedWith(other); }
    Bounds unionedWith(const Bounds& other) const;
    void transform(const Vetra::Transform& t) { *this = transformed(t); }
    /// Empty bounds stay empty. So does whatever a transform takes out of the range of numbers.
    Bounds transformed(const Vetra::Transform& t) const;

    QPainterPath asQPainterPath() const;
    Vetra::Shape asShape() const;

    /// Bare rectangles exactly, four corners within 0.0001, other paths as the toolkit compares
    /// them.
    bool operator==(const Bounds& other) const;

private:
    friend class BoundsFactory;
    using ImplPointer = boost::intrusive_ptr<const BoundsImpl>;

    Bounds(const Rect& rect, ImplPointer impl) noexcept;
    Bounds transformedEmpty(const Vetra::Transform& t) const;

    Rect m_rect;
    ImplPointer m_impl;

    TOVA_PLAIN_TYPE("Tova2.Bounds");
};

} // namespace Tova2
