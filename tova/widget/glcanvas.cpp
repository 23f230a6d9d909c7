#include "tova/widget/glcanvas.h"

#include "nodes/values.h"
#include "widget/glcanvasprivate.h"
#include "widget/toolkitcanvas.h"

#include "tova/events/event.h"
#include "tova/scene/scene.h"
#include "vetra/qt.h"

#include <algorithm>
#include <utility>

namespace Tova2 {

GLCanvas::GLCanvas(Vetra::StringID name, Widgets::GLObject* parent)
    : GLCanvas(name, parent, new ToolkitCanvas)
{}

GLCanvas::GLCanvas(const Vetra::StringID& name, Widgets::GLObject* parent, ToolkitCanvas* widget)
    : GLWidget2(name, parent, widget), d(std::make_unique<GLCanvasPrivate>(*this, widget))
{
    d->beginInput();
}

GLCanvas::~GLCanvas() = default;

void GLCanvas::doEnd()
{
    d->end();
    GLWidget2::doEnd();
}

GLCanvas* GLCanvas::of(const Event& event)
{
    return dynamic_cast<GLCanvas*>(event.canvas());
}

GLCanvasEmitters& GLCanvas::getGLCanvasEmitters()
{
    return d->emitters();
}

void GLCanvas::announceReplacement(GLCanvas& successor)
{
    d->emitters().canvasReplacement.send(&successor, &successor.d->emitters(),
                                         successor.getParent());
}

// Scene and layers

Scene* GLCanvas::getScene() const
{
    return d->layers().baseScene();
}

void GLCanvas::setScene(Scene* scene)
{
    if (hasEnded() || scene == getScene())
        return;
    const Use use(*this);
    d->layers().setBaseScene(scene);
    if (!use.hasEnded())
        d->input().dispatcher().sceneChanged();
    if (use.hasEnded())
        return;
    d->placeScrollbars();
    d->emitters().sceneChange.send();
}

Scene* GLCanvas::getOverlayScene() const
{
    return hasEnded() ? nullptr : d->layers().overlayScene();
}

LayerStack& GLCanvas::getLayerStack()
{
    return d->layers().stack();
}

// Painting and state

void GLCanvas::renderNow()
{
    d->renderNow();
}

bool GLCanvas::getRenderingEnabled() const
{
    return d->isRenderingEnabled();
}

void GLCanvas::setRenderingEnabled(bool on)
{
    d->setRenderingEnabled(on);
}

bool GLCanvas::setOpenGLViewport(bool on)
{
    return d->setOpenGL(on);
}

bool GLCanvas::hasOpenGLViewport() const
{
    return d->hasOpenGL();
}

bool GLCanvas::gridVisible() const
{
    return d->isGridVisible();
}

void GLCanvas::setGridVisible(bool on)
{
    d->setGridVisible(on);
}

bool GLCanvas::focusIndicatorVisible() const
{
    return d->isFocusIndicated();
}

void GLCanvas::setFocusIndicatorVisible(bool on)
{
    d->setFocusIndicated(on);
}

void GLCanvas::setMarquee(const Vetra::GLRect<double>& rect)
{
    d->setMarquee(Vetra::toQt(rect));
}

void GLCanvas::showInCanvasBusyAnimation(Vetra::GLPoint<double> scenePoint)
{
    if (hasEnded() || !isFinite(Vetra::toQt(scenePoint)))
        return;
    d->busyAnimation().start(Vetra::toQt(scenePoint));
    d->emitters().busyAnimation.send(scenePoint);
}

void GLCanvas::hideInCanvasBusyAnimation()
{
    d->busyAnimation().stop();
}

bool GLCanvas::isShowingInCanvasBusyAnimation() const
{
    return d->busyAnimation().isRunning();
}

double GLCanvas::getBackingScaleFactor() const
{
    return d->ratio();
}

const void* GLCanvas::getKey() const
{
    return d.get();
}

void GLCanvas::setLayout(Widgets::GLLayout2* layout)
{
    const Use use(*this);
    GLWidget2::setLayout(layout);
    if (!use.hasEnded())
        d->emitters().layoutChange.send(getLayout());
}

void GLCanvas::setToolInteraction(bool on)
{
    d->hasToolInteraction = on;
}

bool GLCanvas::getToolInteraction() const
{
    return d->hasToolInteraction;
}

// Resize notifications

void GLCanvas::registerResizeNotification(unsigned key)
{
    auto& keys = d->resizeKeys;
    if (std::find(keys.begin(), keys.end(), key) == keys.end())
        keys.push_back(key);
}

void GLCanvas::cancelResizeNotification(unsigned key)
{
    std::erase(d->resizeKeys, key);
}

} // namespace Tova2
