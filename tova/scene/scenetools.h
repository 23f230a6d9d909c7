#pragma once

#include "events/toolstack.h"
#include "events/toolstackhost.h"
#include "scene/nodedelivery.h"
#include "tova/events/toolfactory.h"
#include "tova/scene/rolloverfactory.h"
#include "vemit/emitter.h"
#include "vetra/any.h"
#include "vetra/cursor.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"

#include <map>
#include <optional>
#include <string>

namespace Tova2 {

/// The side of a scene that input goes through: its tool stack, the nodes that input is delivered
/// to, and what tools ask of a scene. Whoever calls it keeps the content alive.
class SceneTools final : private ToolStackHost {
public:
    using MessageEmitter = Vemit::Emitter<const Vetra::StringID&, const Vetra::any&>;
    using CursorEmitter = Vemit::Emitter<>;

    explicit SceneTools(ScenePrivate& scene);

    /// Whom tools and events name; null while the content is taken down.
    void setScene(Scene* scene) { m_stack.setScene(scene); }
    void close();

    ToolStack& stack() noexcept { return m_stack; }
    ToolFactory& factory() noexcept { return m_factory; }
    NodeDelivery& delivery() noexcept { return m_delivery; }
    /// Puts the tools of the default stack on top of what is there, as far as the factory makes
    /// them.
    void fillStack();
    /// Null when the factory makes none, or when the tool did not stay.
    Tool* addToolByRole(const Vetra::StringID& role);
    void sendMessage(const Vetra::StringID& id, const Vetra::any& payload);

    void handleMove(MouseEvent& event);
    void handleLeave(WidgetEvent& event);
    void handleFocusIn(FocusEvent& event);
    void handleFocusOut(FocusEvent& event);

    const std::optional<Vetra::Cursor>& overrideCursor() const noexcept { return m_cursor; }
    CursorEmitter& cursorEmitter() noexcept { return m_cursorChanged; }
    MessageEmitter& messageEmitter() noexcept { return m_messageSent; }

    /// Of what `NodeDelivery::noteLeft` has found.
    void tellDeparted(DeferredError& error);

    void addRolloverFactory(const std::string& name, RolloverFactory* factory);
    bool removeRolloverFactory(const std::string& name);
    RolloverFactory* rolloverFactoryFor(const Node& node) const;

private:
    void showToolCursor(const Vetra::Cursor& cursor) override;
    void restoreCursor() override;
    void noToolActive() override;

    bool isHoverHeld(const MouseEvent& move);
    void leaveNodes(EventCanvas* canvas);
    void tellTools(const NodeDelivery::Crossing& crossing, const MouseEvent& hover);
    void offerHover(MouseEvent event, void (EventHandler::*operation)(MouseEvent&));

    NodeDelivery m_delivery;
    ToolFactory m_factory;
    std::optional<Vetra::Cursor> m_cursor;
    MessageEmitter m_messageSent{Vemit::SendMode::Immediate, Vemit::DropMode::Never};
    // Listeners ask for the cursor that holds now, so one change told covers those made meanwhile.
    CursorEmitter m_cursorChanged{Vemit::SendMode::Immediate, Vemit::DropMode::WhileBusy};
    std::map<std::string, Vetra::Holder<RolloverFactory>> m_rolloverFactories;
    bool m_isLeaveHeld = false; ///< the pointer left the canvas in the middle of a gesture
    ToolStack m_stack;
};

} // namespace Tova2
