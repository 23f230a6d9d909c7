#include "tova/widget/panzoomtool.h"

#include "widget/tools/viewkeys.h"

#include "tova/events/focusevent.h"
#include "tova/events/inputmethodevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/widget/glcanvas.h"

#include <utility>

namespace Tova2 {

using Vetra::MouseButton;

namespace {

Vetra::GLPoint<double> toDoubles(const Vetra::GLPoint<int>& point)
{
    return {double(point.x), double(point.y)};
}

} // namespace

PanZoomTool::PanZoomTool(Scene*)
{
    m_momentum.momentumBeginningEmitter().connect([this] { onMomentumBeginningNotification(); });
    m_momentum.momentumNotificationEmitter().connect(
        [this](Vetra::GLPoint<double> velocity) { onMomentumNotification(velocity); });
    m_momentum.momentumEndedEmitter().connect([this] { onMomentumEndedNotification(); });
}

PanZoomTool::~PanZoomTool()
{
    setCanvas(nullptr);
}

Vetra::StringID PanZoomTool::staticGetDefaultRole()
{
    static const Vetra::StringID role("PanZoomTool");
    return role;
}

void PanZoomTool::cancel(ECancelReason, const Tool*)
{
    m_isPanning = false;
    m_isPanGesture = false;
    m_isPinching = false;
    // Another tool may get to hear that the bar has come up: it counts again when pressed anew.
    m_isSpaceHeld = false;
    if (!isDone())
        becomeIdle();
}

void PanZoomTool::onAppModelChange(EAppModelChangePhase) {}

void PanZoomTool::onRemoveFromStack()
{
    letGo();
}

std::optional<Vetra::Cursor> PanZoomTool::overrideCursor()
{
    if (isInGesture())
        return Vetra::CursorShape::Blank;
    if (m_isPanning)
        return Vetra::CursorShape::ClosedHand;
    if (isIdle())
        return {};
    return Vetra::CursorShape::OpenHand;
}

void PanZoomTool::receiveMessage(Vetra::StringID id, const Vetra::any& payload)
{
    static const Vetra::StringID fixedInterval("TestFixedMomentumInterval");
    static const Vetra::StringID update("TestMomentumUpdate");
    if (id == fixedInterval) {
        if (const auto* seconds = std::any_cast<double>(&payload))
            m_momentum.setFixedTimeInterval(*seconds);
    } else if (id == update) {
        m_momentum.sendNextVelocityNotification();
    } else {
        Tool::receiveMessage(id, payload);
    }
}

// Mouse

void PanZoomTool::handleMousePressEvent(MouseEvent& event)
{
    const MouseButton button = event.asGLMouseEvent2().button;
    if (button == MouseButton::MidButton || (button == MouseButton::LeftButton && !isIdle())) {
        startPan(event);
        event.consume();
        return;
    }
    stopGliding();
    if (!m_isSpaceHeld && !isInGesture())
        setIdle();
}

void PanZoomTool::handleMouseDoubleClickEvent(MouseEvent& event)
{
    // The second press of two quick ones, as in flinging the view on and on.
    handleMousePressEvent(event);
}

void PanZoomTool::startPan(const MouseEvent& event)
{
    const auto& input = event.asGLMouseEvent2();
    setCanvas(GLCanvas::of(event));
    stopGliding();
    if (!claim(m_isPanning))
        return;
    m_button = input.button;
    m_lastPosition = input.position;
    m_behind = {};
    m_momentum.resetSampling();
    m_momentum.sampleLocation(toDoubles(input.position));
}

/// Sets the mark when the tool is active, and before it becomes that: the cursor is asked for then.
bool PanZoomTool::claim(bool& mark)
{
    mark = true;
    becomeActive();
    return mark = isActive();
}

void PanZoomTool::handleMouseMoveEvent(MouseEvent& event)
{
    if (!m_isPanning || GLCanvas::of(event) != m_canvas)
        return;
    const auto position = event.asGLMouseEvent2().position;
    const auto way = toDoubles(position) - toDoubles(std::exchange(m_lastPosition, position));
    if (isInGesture())
        return;
    follow(way);
    m_momentum.sampleLocation(toDoubles(position));
}

void PanZoomTool::handleMouseReleaseEvent(MouseEvent& event)
{
    const auto& input = event.asGLMouseEvent2();
    if (!m_isPanning || input.button != m_button)
        return;
    m_isPanning = false;
    rest();
    if (m_button == MouseButton::MidButton && isIdle() && !m_middleButtonGlides)
        return;
    m_momentum.sampleLocation(toDoubles(input.position));
    m_momentum.beginMomentumNotifications();
}

/// Idle, unless the space bar or a gesture is still at it.
void PanZoomTool::rest()
{
    if (!m_isSpaceHeld && !isInGesture())
        setIdle();
}

void PanZoomTool::setIdle()
{
    m_isPanning = false;
    becomeIdle();
}

// Keys

void PanZoomTool::handleKeyPressEvent(KeyEvent& event)
{
    if (event.key() != Vetra::Key::Space) {
        if (!isIdle() && handleKeyPressDuringPan(event))
            event.consume();
        return;
    }
    if (event.isAutoRepeat())
        return;
    if (!m_isPanning && !isInGesture())
        setCanvas(GLCanvas::of(event));
    claim(m_isSpaceHeld);
    event.consume();
}

void PanZoomTool::handleKeyReleaseEvent(KeyEvent& event)
{
    if (event.key() != Vetra::Key::Space || event.isAutoRepeat())
        return;
    stopGliding();
    m_isSpaceHeld = false;
    m_isPanning = false;
    rest();
}

bool PanZoomTool::handleKeyPressDuringPan(KeyEvent& event)
{
    return m_canvas && moveViewByKey(*m_canvas, event);
}

void PanZoomTool::handleInputMethodEvent(InputMethodEvent& event)
{
    // The keyboard is the view's for now: nothing is to be composed somewhere below.
    if (!isIdle())
        event.consume();
}

void PanZoomTool::handleFocusOutEvent(FocusEvent&)
{
    // Keys and buttons may come up elsewhere.
    cancel(ECancelReason::AllToolsCancelled, nullptr);
}

} // namespace Tova2
