#pragma once

#include "nodes/geometry/painterpathboundsimpl.h"

#include <array>

namespace Tova2 {

/// The closed quadrilateral of four finite points.
class FourPointPainterPathBoundsImpl final : public PainterPathBoundsImpl {
public:
    explicit FourPointPainterPathBoundsImpl(const std::array<Point, 4>& points) : m_points(points)
    {}

    /// With another of its kind, point by point within 0.0001.
    bool equals(const BoundsImpl& other) const override;
    Bounds transformed(const Vetra::Transform& t) const override;

protected:
    void buildPath() const override;

private:
    std::array<Point, 4> m_points;
};

} // namespace Tova2
