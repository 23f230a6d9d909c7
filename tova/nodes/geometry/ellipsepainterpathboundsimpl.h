#pragma once

#include "nodes/geometry/painterpathboundsimpl.h"

namespace Tova2 {

/// The ellipse in a valid, finite rectangle. What hit tests ask is computed without its path.
class EllipsePainterPathBoundsImpl final : public PainterPathBoundsImpl {
public:
    explicit EllipsePainterPathBoundsImpl(const Rect& rect) : m_rect(rect) {}

    Bounds transformed(const Vetra::Transform& t) const override;
    using PainterPathBoundsImpl::contains;
    using PainterPathBoundsImpl::intersects;
    bool intersects(const Rect& rect) const override;
    bool contains(const Point& point) const override;
    bool contains(const Rect& rect) const override;

protected:
    void buildPath() const override;

private:
    Rect m_rect;
};

} // namespace Tova2
