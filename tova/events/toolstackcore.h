#pragma once

#include "events/toollist.h"
#include "tova/events/tool.h"
#include "vetra/any.h"
#include "vetra/cursor.h"
#include "vetra/stringid.h"

#include <optional>
#include <utility>

namespace Tova2 {

class Event;
class DeferredError;
class KeyEvent;
class Scene;
class ToolDispatch;
class ToolStackHost;

/// What a tool stack does. It outlives the `ToolStack` that a tool destroys inside a callback,
/// until the operation under way has returned.
class ToolStackCore {
public:
    ToolStackCore(Scene* scene, ToolStackHost* host) : m_scene(scene), m_host(host) {}
    ToolStackCore(const ToolStackCore&) = delete;
    ToolStackCore& operator=(const ToolStackCore&) = delete;
    /// Lets all tools go; dies when nobody uses it any more.
    void retire() noexcept;
    /// Tools that are here name the new one from now on.
    void setScene(Scene* scene);

    // Membership

    void addTool(Tool* tool, const Vetra::StringID& role);
    bool removeTool(Tool* tool);
    void moveTool(const Tool* tool, const Vetra::StringID& role, bool isAbove);
    void addToolBeside(Tool* tool, const Vetra::StringID& role, bool isAbove);
    void clear();
    /// Also for a pointer to a tool that is no more.
    bool isListed(const Tool* tool) noexcept { return m_tools.find(tool) != m_tools.end(); }
    ToolList& tools() noexcept { return m_tools; }

    // Activity

    /// Asks the tool, which may throw.
    bool mayActivate(const Tool& tool) const;
    void toolStateChanged(Tool& tool, Tool::EInteractionState old, Tool::EInteractionState now);
    /// Of every tool in the list, also of one that is not heard any more.
    void noteState(const Tool& tool) noexcept
    {
        m_mayHaveDone = m_mayHaveDone || tool.isDone();
        m_mayHaveDeferred = m_mayHaveDeferred || tool.isDeferredActive();
    }
    /// 2 when a tool was interrupted that does not cancel transparently, else 1 when any was, else
    /// 0. Collects what the tools throw.
    int cancelTools(const Tool* exempt, Tool::ECancelReason reason, DeferredError& errors);
    void cancelAllTools();
    void setReadonly(bool isReadonly);
    bool isReadonly() const noexcept { return m_isReadonly; }
    Tool* activeTool() const noexcept { return m_active; }

    // Events and messages

    void dispatch(Event& event, bool isKeyRepeat);
    void pressKey(KeyEvent& event);
    void releaseKey(KeyEvent& event);
    void delegateToTool(Tool* tool, Event& event);
    void sendMessage(Vetra::StringID id, const Vetra::any& payload);
    const std::optional<Vetra::Cursor>& overrideCursor() const noexcept { return m_cursor.cursor; }
    /// Asks all tools, the active one first, and shows what they say.
    void renewCursor();

private:
    friend class ToolDispatch;

    struct OfferedCursor {
        std::optional<Vetra::Cursor> cursor;
        const Tool* from = nullptr;
    };
    /// Keeps the core and the tools alive. Every operation that calls a tool holds one.
    class Use;
    /// While there is one, tools that are done stay.
    class Inside;
    /// Of one dispatch or message inside another: the outer one learns of its activations.
    class ActivationScope;
    /// Of one dispatch inside another: each has the cursor that was offered to it.
    class CursorScope;

    ~ToolStackCore() = default;

    bool hasTool(const Tool* tool) const noexcept { return tool->m_stack == this; }
    /// False as well for one that is told its farewell in its place: it hears of nothing else.
    bool serves(const Tool& tool) const noexcept
    {
        return hasTool(&tool) && tool.m_membership != Tool::Membership::Leaving;
    }
    bool mayEnter(const Tool& tool) const noexcept;
    void enter(Tool& tool, const Vetra::StringID& role);
    void join(Tool& tool);
    void dismiss(Tool& tool, DeferredError& errors);
    void cancelForRemoval(Tool& tool);
    void tellRemoved(Tool& tool);
    void expel(Tool& tool, DeferredError& errors);
    void unlink(Tool& tool) noexcept;
    void removeDoneTools(DeferredError& errors);

    void activate(Tool& tool);
    void deactivate(Tool& tool);
    void forgetActive(const Tool* tool) noexcept;
    int cancelOne(Tool& tool, const Tool* exempt, Tool::ECancelReason reason,
                  DeferredError& errors);
    /// Modifying tools get nothing in read-only mode.
    bool isShutOut(const Tool& tool) const
    {
        return m_isReadonly && tool.isModifyingTool() == Tool::ModifyingType::ModifiesModel;
    }
    void noteStates();
    void settle(DeferredError& errors);

    /// Nothing when a tool has offered one already, or the tool has left or is done.
    void collectCursor(Tool& tool)
    {
        if (m_cursor.cursor || !serves(tool) || tool.isDone())
            return;
        const auto cursor = tool.overrideCursor();
        if (cursor && hasTool(&tool))
            m_cursor = {cursor, &tool};
    }
    void showCursor();

    ToolList m_tools;
    Scene* m_scene;
    ToolStackHost* m_host;
    Tool* m_active = nullptr;
    const Tool* m_activating = nullptr; // for whom others are being cancelled
    OfferedCursor m_cursor;
    int m_depth = 0;
    int m_cancelWalks = 0;
    int m_dispatches = 0;
    int m_uses = 0;
    unsigned m_activations = 0;
    bool m_isReadonly = false;
    bool m_isScrolling = false;  // the autoscroller was started for the active tool
    bool m_hasActivated = false; // a tool did so during the handling under way
    bool m_hasSwallowedEscape = false;
    bool m_mayHaveDone = false; // if not, looking for them is spared
    bool m_mayHaveDeferred = false;
    bool m_isCursorStale = false; // the tool that offered it left, or tools changed by themselves
    bool m_isRetired = false;
};

} // namespace Tova2
