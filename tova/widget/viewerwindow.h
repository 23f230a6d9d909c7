#pragma once

#include "widgets/glwindow2.h"

namespace Tova2 {

class Viewer;

/// The window of a viewer. Its end is the viewer's, too: that way both wait for the same event.
class ViewerWindow : public Widgets::GLWindow2 {
public:
    explicit ViewerWindow(Viewer& viewer);

    /// The viewer is ending by itself.
    void leaveViewer() noexcept { m_viewer = nullptr; }
    void doDelete() override;

private:
    Viewer* m_viewer;
};

} // namespace Tova2
