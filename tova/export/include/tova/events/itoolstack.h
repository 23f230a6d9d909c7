#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"
#include "vetra/any.h"
#include "vetra/stringid.h"

namespace Tova2 {

class Event;
class Tool;

/// An ordered stack of tools, each under a role of its own; the top one sees events first.
///
/// All of it may be called from inside a tool's callbacks. It takes visible effect at once, but an
/// event, message or cancellation under way goes by the order that it found: it comes to each tool
/// once, to none that has left and to none that was added meanwhile. What a tool throws reaches the
/// caller after the operation has been completed.
class TOVA_EXPORT IToolStack {
public:
    virtual ~IToolStack();

    /// On top, or in place of the tool that has the role, which is cancelled and leaves. A tool of
    /// this stack moves to its new role; one of another stack is refused, as is one that asks while
    /// it is being removed, and null ignored. One that comes active claims the interaction.
    virtual void addTool(Tool* tool, const Vetra::StringID& role) = 0;
    /// Under its default role.
    virtual void addTool(Tool* tool) = 0;
    /// Hands the event to the tool whatever its state; the stack then has the tool's cursor.
    virtual void delegateToTool(Tool* tool, Event& event) = 0;
    /// The role itself when it is free, otherwise with the first free number from 2 on behind it.
    virtual Vetra::StringID getUniqueToolRoleBasedOn(const Vetra::StringID& role) = 0;
    virtual bool hasTool(Tool* tool) const = 0;
    /// False when it is not here, or is being removed already.
    virtual bool removeTool(Tool* tool) = 0;
    virtual bool removeToolByRole(const Vetra::StringID& role) = 0;
    /// Null when nobody has the role.
    virtual Tool* getToolByRole(const Vetra::StringID& role) const = 0;
    /// Empty when the tool is not here.
    virtual Vetra::StringID getRoleByTool(Tool* tool) = 0;
    /// Lets all tools go without cancelling them.
    virtual void clearToolStack() = 0;
    /// From inside three cancellations of tools it does nothing, so that it comes to an end.
    virtual void cancelAllTools() = 0;
    /// To the active tool, then to all from the top down, the active one among them.
    virtual void sendMessageToTools(Vetra::StringID id, const Vetra::any& payload) = 0;
    /// Right above the tool that has the role; nothing when either is absent.
    virtual void moveToolAbove(Tool* tool, const Vetra::StringID& role) = 0;
    virtual void moveToolBelow(Tool* tool, const Vetra::StringID& role) = 0;
    /// `addTool` under the default role, then the move.
    virtual void addToolAbove(Tool* tool, const Vetra::StringID& role) = 0;
    virtual void addToolBelow(Tool* tool, const Vetra::StringID& role) = 0;
    virtual Tool* getActiveTool() = 0;
    /// Deferred active counts as well.
    virtual bool hasActiveOrAlertTool() const = 0;

    TOVA_BASE_TYPE("Tova2.IToolStack");
};

} // namespace Tova2
