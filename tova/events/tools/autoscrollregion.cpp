#include "events/tools/autoscrollregion.h"

#include <algorithm>
#include <limits>

namespace Tova2 {

namespace {

/// Of an interval, with the pointer a region's thickness deep; it grows with the square of the
/// depth. At the default interval that makes 400 pixels a second for a pointer on the edge.
constexpr double kStepAtEdge = 4;

} // namespace

void AutoscrollRegion::begin(const AutoscrollSettings& settings, const Vetra::GLRect<double>& area,
                             const Vetra::GLPoint<double>& pointer)
{
    m_thickness.fill(-std::numeric_limits<double>::infinity());
    follow(settings, area, pointer);
}

void AutoscrollRegion::follow(const AutoscrollSettings& settings, const Vetra::GLRect<double>& area,
                              const Vetra::GLPoint<double>& pointer)
{
    m_depth.fill(0);
    m_isBeyondEdge = false;
    if (!area.isValid())
        return;
    const PerEdge distance = distances(area, pointer);
    for (std::size_t edge = 0; edge < distance.size(); ++edge) {
        const double grown =
            std::max(m_thickness[edge], distance[edge] - settings.dynamicRegionBackoff);
        m_thickness[edge] = std::min(widest(settings, area, static_cast<int>(edge)), grown);
        m_depth[edge] = std::max(0.0, m_thickness[edge] - distance[edge]);
        m_isBeyondEdge = m_isBeyondEdge || (m_depth[edge] > 0 && distance[edge] < 0);
    }
}

bool AutoscrollRegion::isInside() const noexcept
{
    return std::any_of(m_depth.begin(), m_depth.end(), [](double depth) { return depth > 0; });
}

Vetra::GLPoint<double> AutoscrollRegion::step(const AutoscrollSettings& settings,
                                              double intervals) const
{
    const auto length = [&](Edge edge) {
        const double depth = m_depth[edge] / settings.regionThickness;
        return std::min(settings.maxStep, intervals * kStepAtEdge * depth * depth);
    };
    return {length(Right) - length(Left), length(Bottom) - length(Top)};
}

AutoscrollRegion::PerEdge AutoscrollRegion::distances(const Vetra::GLRect<double>& area,
                                                      const Vetra::GLPoint<double>& pointer)
{
    return {pointer.x - area.x, pointer.y - area.y, area.x + area.width - pointer.x,
            area.y + area.height - pointer.y};
}

/// Opposite strips leave room between them in a small view.
double AutoscrollRegion::widest(const AutoscrollSettings& settings,
                                const Vetra::GLRect<double>& area, int edge)
{
    const double side = edge == Left || edge == Right ? area.width : area.height;
    return std::min(settings.regionThickness, side / 3);
}

} // namespace Tova2
