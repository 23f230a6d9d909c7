#pragma once

#include "tova/events/eventhandler.h"
#include "tova/events/itoolstack.h"
#include "tova/tova_export.h"
#include "vetra/cursor.h"
#include "vetra/referenced.h"

#include <optional>
#include <vector>

namespace Tova2 {

class Scene;
class ToolStackCore;
class ToolStackHost;

/// The tool stack of a scene. Events handled are offered to its tools. It may be destroyed inside
/// any callback of a tool; the operation under way then ends without touching scene or host.
class TOVA_EXPORT ToolStack final : public IToolStack, public EventHandler {
public:
    /// Either may be null, for a stack without a scene.
    ToolStack(Scene* scene, ToolStackHost* host);
    ToolStack(const ToolStack&) = delete;
    ToolStack& operator=(const ToolStack&) = delete;
    /// Lets all tools go.
    ~ToolStack() override;
    /// For content that changes owners; the tools change along.
    void setScene(Scene* scene);

    void addTool(Tool* tool, const Vetra::StringID& role) override;
    void addTool(Tool* tool) override;
    void delegateToTool(Tool* tool, Event& event) override;
    Vetra::StringID getUniqueToolRoleBasedOn(const Vetra::StringID& role) override;
    bool hasTool(Tool* tool) const override;
    bool removeTool(Tool* tool) override;
    bool removeToolByRole(const Vetra::StringID& role) override;
    Tool* getToolByRole(const Vetra::StringID& role) const override;
    Vetra::StringID getRoleByTool(Tool* tool) override;
    void clearToolStack() override;
    void cancelAllTools() override;
    void sendMessageToTools(Vetra::StringID id, const Vetra::any& payload) override;
    void moveToolAbove(Tool* tool, const Vetra::StringID& role) override;
    void moveToolBelow(Tool* tool, const Vetra::StringID& role) override;
    void addToolAbove(Tool* tool, const Vetra::StringID& role) override;
    void addToolBelow(Tool* tool, const Vetra::StringID& role) override;
    Tool* getActiveTool() override;
    bool hasActiveOrAlertTool() const override;

    /// Top first. The vector is made anew by the first call after a change, and a tool that leaves
    /// turns into an empty holder in the one handed out.
    const std::vector<Vetra::Holder<Tool>>& listCurrentTools() const;
    bool getToolstackReadonly() const;
    /// Cancels the tools that modify and are in the middle of something.
    void setToolstackReadonly(bool readonly);
    /// That the tools have asked for last.
    const std::optional<Vetra::Cursor>& overrideCursor() const;
    /// Asks all tools anew, when what they answer may have changed without an event.
    void renewCursor();

    void handleMouseMoveEvent(MouseEvent& event) override;
    void handleMousePressEvent(MouseEvent& event) override;
    void handleMouseReleaseEvent(MouseEvent& event) override;
    void handleMouseDoubleClickEvent(MouseEvent& event) override;
    void handleHoverEnterEvent(MouseEvent& event) override;
    void handleHoverExitEvent(MouseEvent& event) override;
    void handleUserDragInitEvent(MouseEvent& event) override;
    void handleDragEnterEvent(DragEvent& event) override;
    void handleDragLeaveEvent(WidgetEvent& event) override;
    void handleDragEvent(DragEvent& event) override;
    void handleDropEvent(DragEvent& event) override;
    void handleFocusInEvent(FocusEvent& event) override;
    void handleFocusOutEvent(FocusEvent& event) override;
    void handleEnterCanvasEvent(WidgetEvent& event) override;
    void handleLeaveCanvasEvent(WidgetEvent& event) override;
    void handleContextMenuEvent(ContextMenuEvent& event) override;
    void handleWheelEvent(MouseEvent& event) override;
    void handleKeyPressEvent(KeyEvent& event) override;
    void handleKeyReleaseEvent(KeyEvent& event) override;
    void handleInputMethodEvent(InputMethodEvent& event) override;
    void handlePanGestureEvent(PanGestureEvent& event) override;
    void handlePinchGestureEvent(PinchGestureEvent& event) override;

private:
    ToolStackCore* m_core; // retired, not deleted
};

} // namespace Tova2
