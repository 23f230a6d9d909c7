#include "tova/widget/viewer.h"

#include "widget/guarded.h"
#include "widget/viewerwindow.h"

#include "tova/widget/glcanvas.h"

#include "host/displayquery.h"
#include "vetra/saturate.h"

#include <QApplication>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace Tova2 {

namespace {

constexpr Vetra::GLRect<double> standardGeometry{200, 200, 400, 400};

/// Those shown and not closed since, each once.
std::vector<Viewer*>& openViewers()
{
    static std::vector<Viewer*> viewers;
    return viewers;
}

bool canShow()
{
    return Host::svGraphicsHasDisplay() &&
           qobject_cast<QApplication*>(QCoreApplication::instance()) != nullptr;
}

bool isFinite(const Vetra::GLRect<double>& r)
{
    return std::isfinite(r.x) && std::isfinite(r.y) && std::isfinite(r.width) &&
           std::isfinite(r.height);
}

Vetra::GLRect<int> wholePixels(const Vetra::GLRect<double>& r)
{
    using Vetra::saturatedInt;
    return {saturatedInt(r.x), saturatedInt(r.y), saturatedInt(r.width), saturatedInt(r.height)};
}

/// Its listeners and the tools of the scene hear of it, and may throw or end it themselves.
void endCanvas(GLCanvas& canvas) noexcept
{
    const Widgets::GLObject::Use use(canvas);
    guarded("Viewer", [&] { canvas.setScene(nullptr); });
    canvas.destroy();
}

} // namespace

Viewer::Viewer(Scene* scene)
{
    if (scene)
        setScene(scene);
}

Viewer::~Viewer()
{
    disconnectAll();
    std::erase(openViewers(), this);
    if (m_window)
        m_window->leaveViewer();
    if (m_canvas)
        endCanvas(*m_canvas.get());
    if (m_window)
        m_window->destroy();
}

bool Viewer::isUsable() const
{
    return !m_isClosed && canShow();
}

GLCanvas* Viewer::getCanvas() const
{
    if (!isUsable())
        return nullptr;
    if (!m_canvas)
        m_canvas = new GLCanvas("TovaCanvas", nullptr);
    return m_canvas.get();
}

Scene* Viewer::getScene() const
{
    const GLCanvas* const canvas = getCanvas();
    return canvas ? canvas->getScene() : nullptr;
}

void Viewer::setScene(Scene* scene)
{
    if (GLCanvas* const canvas = getCanvas())
        canvas->setScene(scene);
}

void Viewer::show()
{
    showAt(standardGeometry);
}

void Viewer::showAt(const Vetra::GLRect<double>& geometry)
{
    if (!isUsable())
        return;
    if (!m_window)
        makeWindow();
    const Widgets::GLObject::Use use(*m_window);
    if (isFinite(geometry))
        m_window->setGeometry(wholePixels(geometry));
    if (use.hasEnded())
        return;
    auto& viewers = openViewers();
    if (std::find(viewers.begin(), viewers.end(), this) == viewers.end())
        viewers.push_back(this);
    m_isManaged = true;
    m_window->show();
}

void Viewer::makeWindow()
{
    m_window = new ViewerWindow(*this);
    m_window->setGeometry(wholePixels(standardGeometry));
    m_window->setContent(getCanvas());
    m_window->getGLWidgetEmitters().close.connect(this, &Viewer::onCloseEvent);
}

void Viewer::hide()
{
    if (!isUsable())
        return;
    m_isManaged = false;
    if (m_window && m_window->isVisible())
        m_window->hide();
}

void Viewer::close()
{
    if (!isUsable())
        return;
    if (!m_window) {
        onClose();
        return;
    }
    // A listener to the hiding may close or delete this viewer: both end its window.
    const Widgets::GLObject::Use use(*m_window);
    hide();
    if (!use.hasEnded())
        onClose();
}

void Viewer::closeOpenViewers()
{
    if (!canShow())
        return;
    std::vector<std::pair<Viewer*, Widgets::ObjectWatch<ViewerWindow>>> closing;
    for (Viewer* const viewer : std::exchange(openViewers(), {}))
        closing.emplace_back(viewer, viewer->m_window);
    for (const auto& [viewer, window] : closing) {
        if (window)
            viewer->close();
    }
}

void Viewer::onClose()
{
    if (std::exchange(m_isClosed, true))
        return;
    std::erase(openViewers(), this);
    if (m_window)
        m_window->destroy(); // takes this viewer along as soon as nothing uses the window
    else
        delete this;
}

void Viewer::onCloseEvent(Vetra::GLWidgetEvent2)
{
    m_isManaged = false;
    onClose();
}

} // namespace Tova2
