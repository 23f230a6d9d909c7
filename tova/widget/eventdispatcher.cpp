#include "widget/eventdispatcher.h"

#include "widget/input/dispatchcore.h"
#include "widget/input/dispatchhost.h"
#include "widget/input/draginput.h"
#include "widget/input/gestureinput.h"
#include "widget/input/keyinput.h"
#include "widget/input/mouseinput.h"
#include "widget/input/touchinput.h"

#include "tova/events/eventcanvas.h"
#include "vetra/qtevents.h"

#include <QGestureEvent>
#include <QGuiApplication>

#include <utility>

namespace Tova2 {

namespace {

template <class E>
E& as(QEvent& event)
{
    return static_cast<E&>(event);
}

/// What goes on beside one of these stays as it is: a menu belongs to what is going on.
bool isForPopup(const QFocusEvent& event)
{
    return event.reason() == Qt::PopupFocusReason || event.reason() == Qt::MenuBarFocusReason;
}

} // namespace

struct EventDispatcher::Parts {
    Parts(QWidget& viewport, EventCanvas& canvas, DispatchHost& host,
          std::unique_ptr<GestureClock> clock)
        : core(viewport, canvas, host), gestures(core, std::move(clock))
    {
        core.beforeSceneLeaves = [this] { drag.leave(); };
    }

    bool dispatch(QEvent& event);
    void observe(const QEvent& event);
    bool take(QEvent& event);
    bool takeKey(QEvent& event);
    void takeMouse(QEvent::Type type, const QMouseEvent& event);
    void focusOut(const QFocusEvent& event);
    void withdraw();

    DispatchCore core;
    MouseInput mouse{core};
    KeyInput keys{core};
    GestureInput gestures;
    TouchInput touches{core, mouse, gestures};
    DragInput drag{core};
};

/// What is disabled, hidden or shut out takes leave of all input.
void EventDispatcher::Parts::withdraw()
{
    Autoscroller::forgetView(core.host());
    keys.releaseHeld();
    if (core.isOpen())
        core.cancelIfBusy();
}

bool EventDispatcher::Parts::dispatch(QEvent& event)
{
    if (!core.isOpen())
        return false;
    observe(event);
    const bool isTaken = core.isOpen() && core.host().takesInput() && take(event);
    keys.noteTextWanted();
    return isTaken || !core.hasViewport();
}

/// Changes of the widget, which the toolkit deals with as well.
void EventDispatcher::Parts::observe(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::EnabledChange:
        if (core.host().takesInput())
            return;
        [[fallthrough]];
    case QEvent::Hide:
        withdraw();
        if (core.isOpen())
            drag.leave();
        if (core.isOpen())
            core.leaveCanvas();
        break;
    case QEvent::WindowDeactivate:
    case QEvent::WindowBlocked:
        withdraw();
        break;
    case QEvent::UngrabMouse:
        core.cancelIfPressed();
        break;
    case QEvent::FocusOut: // which a canvas loses by being disabled, too
        focusOut(static_cast<const QFocusEvent&>(event));
        break;
    default:
        break;
    }
}

bool EventDispatcher::Parts::take(QEvent& event)
{
    core.followScene();
    if (!core.isOpen())
        return true;
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        event.accept();
        takeMouse(event.type(), as<QMouseEvent>(event));
        return true;
    case QEvent::Wheel:
        event.accept();
        gestures.wheel(as<QWheelEvent>(event));
        return true;
    case QEvent::NativeGesture:
        return gestures.native(as<QNativeGestureEvent>(event));
    case QEvent::Gesture:
        return gestures.recognised(as<QGestureEvent>(event));
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TouchCancel:
        event.setAccepted(touches.take(as<QTouchEvent>(event)));
        return event.isAccepted();
    case QEvent::ContextMenu:
        event.accept();
        mouse.contextMenu(Vetra::fromQt(as<QContextMenuEvent>(event), &core.canvas()));
        return true;
    case QEvent::DragEnter:
        drag.enter(as<QDragEnterEvent>(event));
        return true;
    case QEvent::DragMove:
        drag.move(as<QDragMoveEvent>(event));
        return true;
    case QEvent::Drop:
        drag.drop(as<QDropEvent>(event));
        return true;
    case QEvent::DragLeave:
        drag.leave();
        return true;
    case QEvent::FocusIn:
        core.takeFocus(Vetra::fromQt(as<QFocusEvent>(event).reason()));
        return false;
    case QEvent::Enter:
        core.enterCanvas();
        return false;
    case QEvent::Leave:
        mouse.settle(Vetra::fromQt(QGuiApplication::mouseButtons()));
        core.leaveCanvas();
        return false;
    default:
        return takeKey(event);
    }
}

bool EventDispatcher::Parts::takeKey(QEvent& event)
{
    bool isTaken = false;
    switch (event.type()) {
    case QEvent::ShortcutOverride:
        isTaken = keys.overridesShortcut(as<QKeyEvent>(event));
        break;
    case QEvent::KeyPress:
        isTaken = keys.press(as<QKeyEvent>(event));
        break;
    case QEvent::KeyRelease:
        isTaken = keys.release(as<QKeyEvent>(event));
        break;
    case QEvent::InputMethod:
        isTaken = keys.compose(as<QInputMethodEvent>(event));
        break;
    case QEvent::InputMethodQuery:
        keys.query(as<QInputMethodQueryEvent>(event));
        isTaken = true;
        break;
    default:
        return false;
    }
    if (isTaken) // otherwise it is for the toolkit to say, which moves the focus by keys
        event.accept();
    return isTaken;
}

void EventDispatcher::Parts::takeMouse(QEvent::Type type, const QMouseEvent& event)
{
    core.notePointer(event);
    const auto input = Vetra::fromQt(event, &core.canvas());
    if (type == QEvent::MouseMove)
        mouse.move(input);
    else if (type == QEvent::MouseButtonRelease)
        mouse.release(input);
    else
        mouse.press(type == QEvent::MouseButtonDblClick ? EventType::MouseDoubleClickEvent
                                                        : EventType::MousePressEvent,
                    input);
}

void EventDispatcher::Parts::focusOut(const QFocusEvent& event)
{
    keys.releaseHeld();
    core.loseFocus(Vetra::fromQt(event.reason()));
    if (!isForPopup(event) && core.isOpen())
        core.cancelIfAnyoneBusy();
}

EventDispatcher::EventDispatcher(QWidget& viewport, EventCanvas& canvas, DispatchHost& host,
                                 std::unique_ptr<GestureClock> clock)
    : m_parts(std::make_shared<Parts>(viewport, canvas, host, std::move(clock)))
{
    viewport.setMouseTracking(true);
    viewport.setAcceptDrops(true);
    viewport.setAttribute(Qt::WA_AcceptTouchEvents);
    viewport.setAttribute(Qt::WA_InputMethodEnabled);
    m_parts->core.owner = m_parts;
    m_parts->core.followScene();
}

EventDispatcher::~EventDispatcher()
{
    close();
}

bool EventDispatcher::dispatch(QEvent& event)
{
    const auto parts = m_parts;
    return parts->dispatch(event);
}

void EventDispatcher::deliver(MouseEvent& event)
{
    const auto parts = m_parts;
    parts->core.followScene();
    parts->core.send(event);
}

void EventDispatcher::viewChanged()
{
    const auto parts = m_parts;
    if (parts->core.isOpen() && parts->core.host().takesInput())
        parts->mouse.repeatMove();
}

void EventDispatcher::cancelGesture()
{
    const auto parts = m_parts;
    parts->core.cancelIfAnyoneBusy();
}

void EventDispatcher::sceneChanged()
{
    const auto parts = m_parts;
    parts->core.followScene();
}

void EventDispatcher::close()
{
    const auto parts = m_parts;
    parts->core.close();
}

} // namespace Tova2
