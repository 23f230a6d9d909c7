#pragma once

#include "tova/events/gestureclock.h"
#include "tova/events/tool.h"
#include "tova/events/tooltip.h"
#include "tova/nodes/weakref.h"
#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

/// Shows the tip of the node on which the pointer rests, after the time-in and for the time-out of
/// its rollover factory; a time-out that is not positive has no end. The tip goes when the pointer
/// leaves the node, at any press, key, wheel turn or gesture, and when its node is gone or hidden;
/// the node then has to be entered anew.
class TOVA_EXPORT ToolTipTool : public Tool {
public:
    /// What a node's tip is; an empty text is none.
    using TextProvider = std::function<std::string(const Node&)>;

    /// Null stands for the toolkit's popup, and for the event loop's clock.
    explicit ToolTipTool(std::unique_ptr<ToolTipPresenter> presenter = nullptr,
                         std::unique_ptr<GestureClock> clock = nullptr);
    ~ToolTipTool() override;
    static Vetra::StringID staticGetDefaultRole();

    /// Asked for a node and then for its ancestors until one has a text. An empty provider restores
    /// the value of the node's `toolTipTag`.
    void setTextProvider(TextProvider provider);

    ModifyingType isModifyingTool() const override { return ModifyingType::NeverModifies; }
    EAutoScrollType autoScrollTypeDuringDrag() override { return EAutoScrollType::None; }
    void cancel(ECancelReason reason, const Tool* cause) override;
    void onRemoveFromStack() override;
    Vetra::StringID getDefaultRole() const override { return staticGetDefaultRole(); }

    void handleMouseMoveEvent(MouseEvent& event) override;
    void handleMousePressEvent(MouseEvent& event) override;
    void handleMouseDoubleClickEvent(MouseEvent& event) override;
    void handleWheelEvent(MouseEvent& event) override;
    void handleKeyPressEvent(KeyEvent& event) override;
    void handleFocusOutEvent(FocusEvent& event) override;
    void handleLeaveCanvasEvent(WidgetEvent& event) override;
    void handleDragEnterEvent(DragEvent& event) override;
    void handleContextMenuEvent(ContextMenuEvent& event) override;
    void handlePanGestureEvent(PanGestureEvent& event) override;
    void handlePinchGestureEvent(PinchGestureEvent& event) override;

private:
    enum class Phase { Off, Waiting, Shown };

    std::string textOf(const Node& node) const;
    Node tippedNodeAt(const MouseEvent& event) const;
    std::chrono::milliseconds timeOf(Phase phase, const Node& node) const;
    void hover(const Node& node);
    void tick();
    void show(const Node& node);
    void turnOff();

    std::unique_ptr<ToolTipPresenter> m_presenter;
    std::unique_ptr<GestureClock> m_clock;
    TextProvider m_provider;
    Phase m_phase = Phase::Off;
    WeakRef m_node; // whose tip it is; stays while the pointer does, also when the tip is gone
    std::chrono::nanoseconds m_since{}; // when the phase began, or the pointer last moved
    Vetra::GLPoint<int> m_pointer;      // on the screen

    TOVA_DERIVED_TYPE("Tova2.ToolTipTool", Tool);
};

} // namespace Tova2
