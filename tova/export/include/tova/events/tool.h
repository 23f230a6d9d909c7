#pragma once

#include "tova/events/delegatingeventhandler.h"
#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vemit/emitter.h"
#include "vetra/any.h"
#include "vetra/cursor.h"
#include "vetra/glpoint.h"
#include "vetra/referenced.h"
#include "vetra/stringid.h"

#include <cstdint>
#include <optional>

namespace Tova2 {

class Event;
class MouseEvent;
class Scene;
class ToolStackCore;

/// Recognises one gesture. It is offered the events of its stack, says by its interaction state how
/// far the gesture has come, and owns the interaction while it is active. Counted: stacks hold
/// references. GUI thread only.
///
/// Any callback may do anything, throw included; a tool that leaves its stack inside one of its own
/// is released only after that has returned.
class TOVA_EXPORT Tool : public DelegatingEventHandler, public Vetra::Referenced {
public:
    enum class EInteractionState : std::uint32_t {
        Idle = 0,           ///< sees events, has claimed nothing
        Alert = 1,          ///< has seen its gesture begin
        Active = 2,         ///< gets every event alone
        DeferredActive = 3, ///< becomes active if no other tool does so during this event
        Done = 4            ///< leaves the stack at the next safe point
    };
    enum class ECancelReason : std::uint32_t {
        EscapePressed = 0,
        OtherToolActivated = 1,
        AppModelChange = 3,
        RemovedFromStack = 4,
        AllToolsCancelled = 5
    };
    enum class ModifyingType : std::uint32_t { NeverModifies = 0, ModifiesModel = 1 };
    /// Whatever is not `None` starts the autoscroller.
    enum class EAutoScrollType : std::uint32_t { None = 0, Default = 1 };
    enum class EAppModelChangePhase : std::uint32_t { PreSync = 0, PostSync = 1 };

    using StateEmitter = Vemit::Emitter<Tool*, EInteractionState, EInteractionState>;

    ~Tool() override;
    Tool(const Tool&) = delete;
    Tool& operator=(const Tool&) = delete;

    // Called by the stack, in this order of slots.

    virtual void onAddToStack();
    virtual void onRemoveFromStack();
    /// A modifying tool gets no events while its stack is read-only.
    virtual ModifyingType isModifyingTool() const = 0;
    virtual EAutoScrollType autoScrollTypeDuringDrag();
    /// Ends the gesture; expected to leave the tool idle, or done. `cause` is the tool that took
    /// over, or null.
    virtual void cancel(ECancelReason reason, const Tool* cause) = 0;
    /// Whether Escape still means something to others when it has interrupted this tool.
    virtual bool cancelsTransparently() const;
    virtual Vetra::StringID getDefaultRole() const = 0;
    virtual bool requiresKeyAutoRepeat() const;
    /// Asked after each event that the tool is offered; the topmost answer is shown.
    virtual std::optional<Vetra::Cursor> overrideCursor();
    /// The tool's turn after `becomeDeferredActive`, when nobody else has become active.
    virtual void deferredActivate(Event& event, bool isKeyRepeat);
    virtual void onAppModelChange(EAppModelChangePhase phase);
    /// Messages "AppModelChanged_PreSyncFromRoot" and "AppModelChanged_PostSyncFromRoot" arrive as
    /// `onAppModelChange`; others are ignored here.
    virtual void receiveMessage(Vetra::StringID id, const Vetra::any& payload);

    // The interaction state. A change is told to the stack first, then to those who listen.

    void becomeIdle() { setInteractionState(EInteractionState::Idle); }
    void becomeAlert() { setInteractionState(EInteractionState::Alert); }
    void becomeActive() { setInteractionState(EInteractionState::Active); }
    void becomeDeferredActive() { setInteractionState(EInteractionState::DeferredActive); }
    void becomeDone() { setInteractionState(EInteractionState::Done); }
    /// Nothing when equal. A value that is no state is refused, and so is becoming active while the
    /// stack cancels tools because another one became active, inside three cancellations, or by a
    /// tool that modifies in a read-only stack. A tool that is still active when another has taken
    /// over, or when its stack turns read-only, becomes idle.
    void setInteractionState(EInteractionState state);
    EInteractionState getInteractionState() const noexcept { return m_state; }
    bool isIdle() const noexcept { return m_state == EInteractionState::Idle; }
    bool isAlert() const noexcept { return m_state == EInteractionState::Alert; }
    bool isActive() const noexcept { return m_state == EInteractionState::Active; }
    bool isDeferredActive() const noexcept { return m_state == EInteractionState::DeferredActive; }
    bool isDone() const noexcept { return m_state == EInteractionState::Done; }
    /// "idle", "deferred active" and so on; "invalid" for a value that is no state.
    static const char* interactionStateName(EInteractionState state) noexcept;
    /// Sends (tool, old state, new state).
    StateEmitter& stateChangeEmitter() noexcept { return m_stateChange; }

    /// The scene of the stack; null outside of one, and in a stack without a scene.
    Scene* scene() const noexcept { return m_scene; }

    static bool isContextMenuEvent(const Event& event) noexcept;
    /// Whether the pointer has gone far enough for a drag: 2 pixels.
    static bool movedPastInteractionThreshold(const Vetra::GLPoint<int>& from,
                                              const Vetra::GLPoint<int>& to) noexcept;
    /// By the positions in the widget.
    static bool movedPastInteractionThreshold(const MouseEvent& from, const MouseEvent& to);

protected:
    Tool();

private:
    friend class ToolStackCore;
    enum class Membership : std::uint8_t { None, Member, Cancelled, Leaving };

    StateEmitter m_stateChange;
    Scene* m_scene = nullptr;
    ToolStackCore* m_stack = nullptr;     // whose list it is in
    ToolStackCore* m_stateSink = nullptr; // who hears of its state; null sooner than m_stack
    EInteractionState m_state = EInteractionState::Idle;
    Membership m_membership = Membership::None;

    TOVA_DERIVED_TYPE("Tova2.Tool", DelegatingEventHandler);
};

} // namespace Tova2
