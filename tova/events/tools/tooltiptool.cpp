#include "tova/events/tooltiptool.h"

#include "tova/events/contextmenuevent.h"
#include "tova/events/dragevent.h"
#include "tova/events/focusevent.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/pangestureevent.h"
#include "tova/events/pinchgestureevent.h"
#include "tova/events/widgetevent.h"
#include "tova/scene/rolloverfactory.h"
#include "tova/scene/scene.h"

#include "events/tools/shownin.h"

#include <utility>

namespace Tova2 {

namespace {

using std::chrono::milliseconds;

/// Asking the time is cheaper than a new timer for each move of the pointer.
constexpr milliseconds kTick{25};

} // namespace

ToolTipTool::ToolTipTool(std::unique_ptr<ToolTipPresenter> presenter,
                         std::unique_ptr<GestureClock> clock)
    : m_presenter(presenter ? std::move(presenter) : ToolTipPresenter::asPopup())
    , m_clock(clock ? std::move(clock) : GestureClock::onEventLoop())
{}

ToolTipTool::~ToolTipTool() = default;

Vetra::StringID ToolTipTool::staticGetDefaultRole()
{
    static const Vetra::StringID role("ToolTipTool");
    return role;
}

void ToolTipTool::setTextProvider(TextProvider provider)
{
    m_provider = std::move(provider);
}

void ToolTipTool::cancel(ECancelReason, const Tool*)
{
    turnOff();
    becomeIdle();
}

void ToolTipTool::onRemoveFromStack()
{
    turnOff();
    m_node = {};
}

void ToolTipTool::handleMouseMoveEvent(MouseEvent& event)
{
    const auto& input = event.asGLMouseEvent2();
    if (!input.buttons.isEmpty())
        return turnOff();
    m_pointer = input.globalPosition;
    hover(tippedNodeAt(event));
}

void ToolTipTool::handleMousePressEvent(MouseEvent&)
{
    turnOff();
}

void ToolTipTool::handleMouseDoubleClickEvent(MouseEvent&)
{
    turnOff();
}

void ToolTipTool::handleWheelEvent(MouseEvent&)
{
    turnOff();
}

void ToolTipTool::handleKeyPressEvent(KeyEvent&)
{
    turnOff();
}

void ToolTipTool::handleFocusOutEvent(FocusEvent&)
{
    turnOff();
}

void ToolTipTool::handleLeaveCanvasEvent(WidgetEvent&)
{
    turnOff();
    m_node = {};
}

void ToolTipTool::handleDragEnterEvent(DragEvent&)
{
    turnOff();
}

void ToolTipTool::handleContextMenuEvent(ContextMenuEvent&)
{
    turnOff();
}

void ToolTipTool::handlePanGestureEvent(PanGestureEvent&)
{
    turnOff();
}

void ToolTipTool::handlePinchGestureEvent(PinchGestureEvent&)
{
    turnOff();
}

std::string ToolTipTool::textOf(const Node& node) const
{
    const auto provider = m_provider; // it may set another one
    if (provider)
        return provider(node);
    const Vetra::any value = node.getTagValue(toolTipTag());
    const auto* text = std::any_cast<std::string>(&value);
    return text ? *text : std::string();
}

Node ToolTipTool::tippedNodeAt(const MouseEvent& event) const
{
    if (!scene())
        return {};
    Node node = scene()->getNodeAt(event.scenePos(), event.getViewportTransform());
    while (node.isValid() && textOf(node).empty())
        node = node.getParent();
    return node;
}

milliseconds ToolTipTool::timeOf(Phase phase, const Node& node) const
{
    // Counted: it may remove itself from the scene when it is asked.
    const Vetra::Holder<RolloverFactory> factory(scene()->getRolloverFactoryFor(node));
    if (phase == Phase::Waiting)
        return milliseconds(factory ? factory->timeIn(node) : DEFAULT_TOOLTIP_TIMEIN);
    return milliseconds(factory ? factory->timeOut(node) : DEFAULT_TOOLTIP_TIMEOUT);
}

void ToolTipTool::hover(const Node& node)
{
    const bool isSame = node.isValid() ? m_node.getNode() == node : m_node == WeakRef();
    if (isSame) {
        if (m_phase == Phase::Waiting)
            m_since = m_clock->now();
        return;
    }
    turnOff();
    m_node = node.isValid() ? WeakRef(node) : WeakRef();
    if (!node.isValid())
        return;
    m_phase = Phase::Waiting;
    m_since = m_clock->now();
    m_clock->startRepeating(kTick, [this] { tick(); });
}

void ToolTipTool::tick()
{
    const Vetra::Holder<Tool> self(this); // whoever is asked here may let the tool go
    const Node node = m_node.getNode();
    if (!isShownIn(node, scene()))
        return turnOff();
    const auto rested = m_clock->now() - m_since;
    const auto time = timeOf(m_phase, node);
    if (m_phase == Phase::Waiting && rested >= time)
        show(node);
    else if (m_phase == Phase::Shown && time.count() > 0 && rested >= time)
        turnOff();
}

void ToolTipTool::show(const Node& node)
{
    const std::string text = textOf(node);
    if (text.empty() || m_phase != Phase::Waiting) // the provider may have ended the waiting
        return turnOff();
    m_phase = Phase::Shown;
    m_since = m_clock->now();
    m_presenter->show(text, m_pointer);
}

void ToolTipTool::turnOff()
{
    m_clock->stop();
    if (std::exchange(m_phase, Phase::Off) == Phase::Shown)
        m_presenter->hide();
}

} // namespace Tova2
