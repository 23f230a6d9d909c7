#pragma once

#include "tova/nodes/geometry/bounds.h"

#include <atomic>

namespace Tova2 {

/// What lies inside the rectangle of a region that is not the rectangle itself. Never changed once
/// it is made, so that any number of `Bounds` share it.
class BoundsImpl {
public:
    using Point = Bounds::Point;
    using Rect = Bounds::Rect;

    BoundsImpl() = default;
    BoundsImpl(const BoundsImpl&) = delete;
    BoundsImpl& operator=(const BoundsImpl&) = delete;

    // The order of the virtual operations is part of the interface.
    virtual ~BoundsImpl();
    virtual bool equals(const BoundsImpl& other) const = 0;
    virtual Bounds transformed(const Vetra::Transform& t) const = 0;
    virtual Bounds unionedWith(const Bounds& other) const = 0;
    virtual Bounds unionedWith(const Rect& rect) const = 0;
    virtual Bounds intersectedWith(const BoundsImpl& other) const = 0;
    virtual Bounds intersectedWith(const Rect& rect) const = 0;
    virtual bool intersects(const BoundsImpl& other) const = 0;
    virtual bool intersects(const Rect& rect) const = 0;
    virtual bool contains(const Point& point) const = 0;
    virtual bool contains(const BoundsImpl& other) const = 0;
    virtual bool contains(const Rect& rect) const = 0;
    virtual bool containsPath(const QPainterPath& path) const = 0;
    virtual bool intersectsPath(const QPainterPath& path) const = 0;
    virtual std::vector<Rect> boundingRects() const = 0;
    virtual const QPainterPath& asQPainterPath() const = 0;

protected:
    virtual void buildPath() const = 0;

private:
    friend void intrusive_ptr_add_ref(const BoundsImpl* impl) noexcept;
    friend void intrusive_ptr_release(const BoundsImpl* impl) noexcept;

    mutable std::atomic<int> m_count{0};
};

/// The library's way to a region of a rectangle and what lies in it.
class BoundsFactory {
public:
    /// Just the rectangle when it is not valid, or too far out for a path.
    static Bounds make(const Bounds::Rect& rect, boost::intrusive_ptr<const BoundsImpl> impl)
    {
        return Bounds(rect, std::move(impl));
    }
    static const BoundsImpl* impl(const Bounds& bounds) { return bounds.m_impl.get(); }
};

} // namespace Tova2
