#include "widget/viewerwindow.h"

#include "tova/widget/viewer.h"

#include <utility>

namespace Tova2 {

ViewerWindow::ViewerWindow(Viewer& viewer) : GLWindow2("Viewer", nullptr), m_viewer(&viewer)
{
    setTitle(u"Viewer");
}

void ViewerWindow::doDelete()
{
    if (hasEnded() && !isInUse())
        delete std::exchange(m_viewer, nullptr);
    GLWindow2::doDelete();
}

} // namespace Tova2
