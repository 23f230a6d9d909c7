#pragma once

#include "nodes/geometry/painterpathboundsimpl.h"

#include <vector>

namespace Tova2 {

/// A closed polygon of at least three finite points, filled by its winding.
class PolygonPainterPathBoundsImpl final : public PainterPathBoundsImpl {
public:
    explicit PolygonPainterPathBoundsImpl(const std::vector<Point>& points) : m_points(points) {}
    Bounds transformed(const Vetra::Transform& t) const override;

protected:
    void buildPath() const override;

private:
    std::vector<Point> m_points;
};

} // namespace Tova2
