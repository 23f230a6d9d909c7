#pragma once

#include "diagram.h"

#include <tova/nodes/roundedrectnode.h>
#include <tova/scene/scene.h>

namespace TovaView {

/// The outline of a selected block in the overlay, as wide at every zoom.
class SelectionFrame {
public:
    SelectionFrame(Tova2::Scene& overlay, const Vetra::Color& accent);
    SelectionFrame(SelectionFrame&&) = default;
    SelectionFrame& operator=(SelectionFrame&&) = default;
    ~SelectionFrame();

    void place(const Rect& block);

private:
    Tova2::RoundedRectNode m_outline;
};

} // namespace TovaView
