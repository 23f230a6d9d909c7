#pragma once

#include "diagram.h"

#include <tova/nodes/rectnode.h>
#include <tova/scene/scene.h>

#include <array>

namespace TovaView {

/// The outline of a selected block in the overlay, with a small square at each corner. Line and
/// squares look the same at every zoom.
class SelectionFrame {
public:
    SelectionFrame(Tova2::Scene& overlay, const Vetra::Color& accent);
    SelectionFrame(SelectionFrame&&) = default;
    SelectionFrame& operator=(SelectionFrame&&) = default;
    ~SelectionFrame();

    /// At a view scale at which the squares would cover a small block, they do not show.
    void place(const Rect& block, double viewScale);

private:
    Tova2::RectNode m_outline;
    std::array<Tova2::RectNode, 4> m_handles;
};

} // namespace TovaView
