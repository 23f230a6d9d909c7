#pragma once

#include "events/tools/autoscrollsettings.h"
#include "vetra/glpoint.h"
#include "vetra/glrect.h"

#include <array>

namespace Tova2 {

/// The strips along the edges of a view in which a drag scrolls it; in view pixels.
class AutoscrollRegion {
public:
    /// A drag begins: strips that it is in already shrink until they lie before it.
    void begin(const AutoscrollSettings& settings, const Vetra::GLRect<double>& area,
               const Vetra::GLPoint<double>& pointer);
    /// Strips grow back behind a pointer that withdraws.
    void follow(const AutoscrollSettings& settings, const Vetra::GLRect<double>& area,
                const Vetra::GLPoint<double>& pointer);

    bool isInside() const noexcept;
    bool isBeyondEdge() const noexcept { return m_isBeyondEdge; }
    /// At the pointer's depth, for that many intervals; right and down when positive.
    Vetra::GLPoint<double> step(const AutoscrollSettings& settings, double intervals) const;

private:
    enum Edge { Left, Top, Right, Bottom };
    using PerEdge = std::array<double, 4>;

    static PerEdge distances(const Vetra::GLRect<double>& area,
                             const Vetra::GLPoint<double>& pointer);
    static double widest(const AutoscrollSettings& settings, const Vetra::GLRect<double>& area,
                         int edge);

    PerEdge m_thickness{};
    PerEdge m_depth{}; // how far in the strip the pointer is, beyond the edge as well; or 0
    bool m_isBeyondEdge = false;
};

} // namespace Tova2
