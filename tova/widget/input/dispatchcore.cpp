#include "widget/input/dispatchcore.h"

#include "widget/input/dispatchhost.h"

#include "tova/events/event.h"
#include "tova/events/eventcanvas.h"
#include "tova/events/focusevent.h"
#include "tova/events/widgetevent.h"
#include "vetra/qt.h"

#include <QMouseEvent>

#include <algorithm>
#include <cmath>
#include <vector>

namespace Tova2 {

namespace {

std::vector<DispatchCore*>& openCores()
{
    static std::vector<DispatchCore*>& cores = *new std::vector<DispatchCore*>;
    return cores;
}

} // namespace

DispatchCore::DispatchCore(QWidget& viewport, EventCanvas& canvas, DispatchHost& host)
    : m_viewport(&viewport), m_canvas(canvas), m_life(&canvas), m_host(host)
{
    openCores().push_back(this);
}

DispatchCore::~DispatchCore()
{
    disconnectAll();
    std::erase(openCores(), this);
}

DispatchCore* DispatchCore::ofViewport(const QObject* viewport)
{
    const auto& cores = openCores();
    const auto core = std::find_if(cores.begin(), cores.end(), [viewport](const auto* c) {
        return viewport && c->isOpen() && &c->viewport() == viewport;
    });
    return core == cores.end() ? nullptr : *core;
}

void DispatchCore::close()
{
    if (!std::exchange(m_isOpen, false))
        return;
    Autoscroller::forgetView(m_host);
    unfollow();
}

void DispatchCore::followScene()
{
    if (!isOpen())
        return;
    Scene* const scene = m_canvas.getScene();
    const void* const content = scene ? scene->d_func() : nullptr;
    if (scene == m_scene.get() && content == m_content)
        return;
    const bool wasInside = m_isPointerInside;
    const bool hadFocus = m_hasFocus;
    Autoscroller::forgetView(m_host);
    if (beforeSceneLeaves)
        beforeSceneLeaves();
    leaveCanvas();
    loseFocus(Vetra::FocusReason::OtherReason);
    unfollow();
    // What has been called back may have gone on to yet another scene.
    if (!isOpen() || m_scene || m_canvas.getScene() != scene)
        return;
    m_scene = scene;
    m_content = content;
    if (scene)
        scene->getToolOverrideCursorEmitter().connect(this, [this] { showCursor(); });
    showCursor();
    if (wasInside)
        enterCanvas();
    if (hadFocus)
        takeFocus(Vetra::FocusReason::OtherReason);
}

void DispatchCore::unfollow()
{
    disconnectAll();
    const bool wasBusy = isBusy();
    held = {};
    ++m_gestureNumber;
    m_hasBegunWork = false;
    m_content = nullptr;
    const Vetra::Holder<Scene> scene = std::exchange(m_scene, nullptr);
    if (wasBusy && scene)
        cancelTools(*scene);
}

bool DispatchCore::send(Event& event)
{
    const Vetra::Holder<Scene> scene = m_scene;
    if (!isOpen() || !scene)
        return isOpen();
    const bool wasIdle = !scene->hasActiveOrAlertTool();
    const bool isDone = guard([&] { event.accept(*scene); });
    m_hasBegunWork = (m_hasBegunWork || wasIdle) && scene->hasActiveOrAlertTool();
    if (!isDone) {
        cancelGesture();
        return false;
    }
    if (isOpen() && scene->getActiveTool())
        m_canvas.setToolInteraction(true);
    return isOpen();
}

bool DispatchCore::isBusy() const
{
    return !held.isEmpty() || (m_hasBegunWork && m_scene && m_scene->hasActiveOrAlertTool());
}

void DispatchCore::cancelGesture()
{
    held = {};
    ++m_gestureNumber;
    const Vetra::Holder<Scene> scene = m_scene;
    if (scene)
        cancelTools(*scene);
}

void DispatchCore::cancelTools(Scene& scene)
{
    guard([&] { scene.cancelAllTools(); });
    if (isOpen() && !scene.getActiveTool())
        m_canvas.setToolInteraction(false);
}

void DispatchCore::cancelIfBusy()
{
    if (isBusy())
        cancelGesture();
}

void DispatchCore::cancelIfAnyoneBusy()
{
    if (isBusy() || (m_scene && m_scene->hasActiveOrAlertTool()))
        cancelGesture();
}

void DispatchCore::cancelIfPressed()
{
    if (!held.isEmpty())
        cancelGesture();
}

void DispatchCore::notePointer(const QMouseEvent& event)
{
    m_pointer = event.windowPos() - m_viewport->mapTo(m_viewport->window(), QPoint());
}

QPointF DispatchCore::pointerNear(const QPointF& told) const
{
    const QPointF known = m_pointer.value_or(told), off = told - known;
    return std::max(std::abs(off.x()), std::abs(off.y())) < 1 ? known : told;
}

void DispatchCore::enterCanvas()
{
    if (!isOpen() || std::exchange(m_isPointerInside, true))
        return;
    WidgetEvent event(EventType::EnterCanvasEvent, {&m_canvas});
    send(event);
}

void DispatchCore::leaveCanvas()
{
    if (!isOpen() || !std::exchange(m_isPointerInside, false))
        return;
    WidgetEvent event(EventType::LeaveCanvasEvent, {&m_canvas});
    send(event);
}

void DispatchCore::takeFocus(Vetra::FocusReason reason)
{
    if (!isOpen() || std::exchange(m_hasFocus, true))
        return;
    FocusEvent event(EventType::FocusInEvent, {&m_canvas, reason});
    send(event);
}

void DispatchCore::loseFocus(Vetra::FocusReason reason)
{
    if (!isOpen() || !std::exchange(m_hasFocus, false))
        return;
    FocusEvent event(EventType::FocusOutEvent, {&m_canvas, reason});
    send(event);
}

void DispatchCore::showCursor()
{
    if (!isOpen())
        return;
    std::optional<Vetra::Cursor> wanted;
    if (m_scene && m_scene->hasToolOverrideCursor())
        wanted = m_scene->getToolOverrideCursor();
    if (wanted == m_toolCursor)
        return;
    if (!m_toolCursor)
        m_ownCursor = ownCursor();
    const auto shown = std::exchange(m_toolCursor, wanted);
    if (wanted)
        m_viewport->setCursor(Vetra::toQt(*wanted));
    else if (Vetra::fromQt(m_viewport->cursor()) ==
             shown) // and not one that the host has set since
        restoreCursor();
}

/// None when the widget shows its parent's.
std::optional<QCursor> DispatchCore::ownCursor() const
{
    if (!m_viewport->testAttribute(Qt::WA_SetCursor))
        return {};
    return m_viewport->cursor();
}

void DispatchCore::restoreCursor()
{
    if (m_ownCursor)
        m_viewport->setCursor(*m_ownCursor);
    else
        m_viewport->unsetCursor();
}

} // namespace Tova2
