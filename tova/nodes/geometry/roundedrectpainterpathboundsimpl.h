#pragma once

#include "nodes/geometry/painterpathboundsimpl.h"

namespace Tova2 {

/// A rounded rectangle, valid and finite. Points are tested without its path.
class RoundedRectPainterPathBoundsImpl final : public PainterPathBoundsImpl {
public:
    explicit RoundedRectPainterPathBoundsImpl(const RoundedRect& shape) : m_shape(shape) {}

    Bounds transformed(const Vetra::Transform& t) const override;
    using PainterPathBoundsImpl::contains;
    bool contains(const Point& point) const override;

protected:
    void buildPath() const override;

private:
    RoundedRect m_shape;
};

} // namespace Tova2
