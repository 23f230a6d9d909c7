#include "scene/scenetools.h"

#include "nodes/deferrederror.h"
#include "nodes/destruction.h"

#include "tova/events/focusevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/widgetevent.h"
#include "vetra/quarntimer.h"

#include <boost/container/small_vector.hpp>

#include <array>

namespace Tova2 {

namespace {

// From the bottom up: the text tool sees events first.
constexpr std::array kDefaultRoles{"UnconsumedEventTool", "CursorChangeTool", "PanZoomTool",
                                   "ToolTipTool",         "ScrollWheelTool",  "TextTool"};

/// Panning glides on by a timer.
bool isUsable(const Vetra::StringID& role)
{
    return role != Vetra::StringID("PanZoomTool") || Vetra::QuarnTimer::isServicePresent();
}

} // namespace

RolloverFactory::~RolloverFactory() = default;

int RolloverFactory::timeIn(const Node&)
{
    return DEFAULT_TOOLTIP_TIMEIN;
}

int RolloverFactory::timeOut(const Node&)
{
    return DEFAULT_TOOLTIP_TIMEOUT;
}

SceneTools::SceneTools(ScenePrivate& scene) : m_delivery(scene), m_stack(nullptr, this) {}

void SceneTools::close()
{
    m_delivery.forgetAll();
    m_stack.clearToolStack();
}

void SceneTools::fillStack()
{
    for (const char* const role : kDefaultRoles) {
        if (isUsable(role))
            addToolByRole(role);
    }
    [[maybe_unused]] Tool* const tool = m_stack.getToolByRole("CursorChangeTool");
    Q_ASSERT_X(tool, "SceneTools::fillStack", "tool");
}

Tool* SceneTools::addToolByRole(const Vetra::StringID& role)
{
    const Vetra::Holder<Tool> tool = m_factory.createTool(role);
    m_stack.addTool(tool.get(), role);
    return m_stack.hasTool(tool.get()) ? tool.get() : nullptr;
}

void SceneTools::sendMessage(const Vetra::StringID& id, const Vetra::any& payload)
{
    DeferredError error;
    error.run([&] { m_stack.sendMessageToTools(id, payload); });
    error.run([&] { m_messageSent.send(id, payload); });
    error.rethrow();
}

// What nodes hear of a move, a leave or the keyboard comes after the tools, which may edit the
// scene, and also when a tool has thrown.

void SceneTools::handleMove(MouseEvent& event)
{
    m_isLeaveHeld = false;
    DeferredError error;
    error.run([&] { m_stack.handleMouseMoveEvent(event); });
    if (!isHoverHeld(event)) {
        NodeDelivery::Crossing crossing;
        error.run([&] { crossing = m_delivery.hover(event); });
        error.run([&] { tellTools(crossing, event); });
        // Tools and nodes may want another cursor since the tools were asked.
        if ((crossing.hasLeft || crossing.hasEntered) && !event.isConsumed())
            error.run([&] { m_stack.renewCursor(); });
    }
    error.rethrow();
}

void SceneTools::handleLeave(WidgetEvent& event)
{
    DeferredError error;
    error.run([&] { m_stack.handleLeaveCanvasEvent(event); });
    m_isLeaveHeld = m_stack.getActiveTool() != nullptr;
    if (!m_isLeaveHeld)
        error.run([&] { leaveNodes(event.canvas()); });
    error.rethrow();
}

/// A gesture has ended beyond the edge of its canvas, where the pointer is over no node.
void SceneTools::noToolActive()
{
    if (!std::exchange(m_isLeaveHeld, false))
        return;
    const DestructionDelay delay; // a tool may end its gesture by a timer, with no use of the scene
    leaveNodes(nullptr);
}

void SceneTools::leaveNodes(EventCanvas* canvas)
{
    tellTools(m_delivery.hoverNothing(), m_delivery.lastHover(canvas));
}

void SceneTools::tellDeparted(DeferredError& error)
{
    if (!m_delivery.tellDeparted(error))
        return;
    if (!m_stack.getActiveTool())
        error.run([&] { tellTools({.hasLeft = true}, m_delivery.lastHover()); });
    error.run([&] { m_stack.renewCursor(); });
}

void SceneTools::handleFocusIn(FocusEvent& event)
{
    DeferredError error;
    error.run([&] { m_stack.handleFocusInEvent(event); });
    error.run([&] { m_delivery.focusIn(event); });
    error.rethrow();
}

void SceneTools::handleFocusOut(FocusEvent& event)
{
    DeferredError error;
    error.run([&] { m_stack.handleFocusOutEvent(event); });
    error.run([&] { m_delivery.focusOut(event); });
    error.rethrow();
}

/// In the middle of a gesture whatever lies under the pointer is only passed over.
bool SceneTools::isHoverHeld(const MouseEvent& move)
{
    return !move.asGLMouseEvent2().buttons.isEmpty() || m_stack.getActiveTool();
}

void SceneTools::tellTools(const NodeDelivery::Crossing& crossing, const MouseEvent& hover)
{
    DeferredError error;
    if (crossing.hasLeft)
        error.run([&] {
            offerHover(hover.withType(EventType::HoverEvent), &EventHandler::handleHoverExitEvent);
        });
    if (crossing.hasEntered)
        error.run([&] {
            offerHover(hover.withType(EventType::HoverEvent), &EventHandler::handleHoverEnterEvent);
        });
    error.rethrow();
}

void SceneTools::offerHover(MouseEvent event, void (EventHandler::*operation)(MouseEvent&))
{
    // A copy: tools come and go meanwhile.
    const auto& current = m_stack.listCurrentTools();
    const boost::container::small_vector<Vetra::Holder<Tool>, 16> tools(current.begin(),
                                                                        current.end());
    for (const auto& tool : tools) {
        if (event.isConsumed())
            return;
        const bool isShutOut = m_stack.getToolstackReadonly() &&
                               tool->isModifyingTool() == Tool::ModifyingType::ModifiesModel;
        if (!isShutOut && m_stack.hasTool(tool.get()))
            (tool.get()->*operation)(event);
    }
}

void SceneTools::showToolCursor(const Vetra::Cursor& cursor)
{
    if (m_cursor == cursor)
        return;
    m_cursor = cursor;
    m_cursorChanged.send();
}

void SceneTools::restoreCursor()
{
    if (!m_cursor)
        return;
    m_cursor.reset();
    m_cursorChanged.send();
}

void SceneTools::addRolloverFactory(const std::string& name, RolloverFactory* factory)
{
    if (factory)
        m_rolloverFactories[name] = Vetra::Holder<RolloverFactory>(factory);
}

bool SceneTools::removeRolloverFactory(const std::string& name)
{
    return m_rolloverFactories.erase(name) > 0;
}

RolloverFactory* SceneTools::rolloverFactoryFor(const Node& node) const
{
    const auto named = [this](const std::string& name) {
        const auto found = m_rolloverFactories.find(name);
        return found == m_rolloverFactories.end() ? nullptr : found->second.get();
    };
    if (m_rolloverFactories.empty() || !node.isValid())
        return named({});
    for (const Vetra::StringID& tag : node.getTags()) {
        if (RolloverFactory* const factory = named(tag.str()))
            return factory;
    }
    RolloverFactory* const ofKind = named(node.getFullyQualifiedKobjTypeName());
    return ofKind ? ofKind : named({});
}

} // namespace Tova2
