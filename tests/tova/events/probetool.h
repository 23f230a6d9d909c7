#pragma once

#include "tova/events/event.h"
#include "tova/events/keyevent.h"
#include "tova/events/mouseevent.h"
#include "tova/events/tool.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Tells a log of its calls, "name call", and does what a test hangs into it.
class ProbeTool : public Tova2::Tool {
public:
    using Log = std::vector<std::string>;
    using Action = std::function<void(ProbeTool&)>;

    ProbeTool(Log& log, std::string toolName) : name(std::move(toolName)), m_log(log) {}
    ~ProbeTool() override { tell("gone"); }

    void onAddToStack() override { tell("added"); }
    void onRemoveFromStack() override
    {
        tell("removed");
        run(onRemove);
    }
    ModifyingType isModifyingTool() const override
    {
        return isModifying ? ModifyingType::ModifiesModel : ModifyingType::NeverModifies;
    }
    void cancel(ECancelReason reason, const Tool* cause) override
    {
        tell("cancel " + std::to_string(static_cast<int>(reason)) + (cause ? " for another" : ""));
        if (onCancel)
            onCancel(*this);
        else
            becomeIdle();
    }
    bool cancelsTransparently() const override { return isTransparent; }
    Vetra::StringID getDefaultRole() const override { return name; }
    bool requiresKeyAutoRepeat() const override { return wantsRepeats; }
    EAutoScrollType autoScrollTypeDuringDrag() override { return scrollType; }
    std::optional<Vetra::Cursor> overrideCursor() override
    {
        run(onCursor);
        return cursor;
    }
    void receiveMessage(Vetra::StringID id, const Vetra::any& payload) override
    {
        tell("message");
        Tool::receiveMessage(id, payload);
    }
    void onAppModelChange(EAppModelChangePhase phase) override
    {
        if (phase == EAppModelChangePhase::PostSync)
            tell("synced");
        Tool::onAppModelChange(phase);
    }
    void handleMousePressEvent(Tova2::MouseEvent& event) override
    {
        current = &event;
        tell("press", &event);
        run(onPress);
    }
    void handleKeyPressEvent(Tova2::KeyEvent& event) override { tell("key", &event); }
    void handleKeyReleaseEvent(Tova2::KeyEvent& event) override { tell("key up", &event); }
    void deferredActivate(Tova2::Event& event, bool isKeyRepeat) override
    {
        tell("deferred", &event);
        Tool::deferredActivate(event, isKeyRepeat);
    }

    std::string name;
    Action onPress;
    Action onCancel; ///< in place of becoming idle
    Action onRemove;
    Action onCursor; ///< whenever it is asked for one
    /// What it is called by, and with which event.
    std::function<void(ProbeTool&, const std::string&, Tova2::Event*)> onCall;
    Tova2::Event* current = nullptr;
    std::optional<Vetra::Cursor> cursor;
    bool isModifying = false;
    bool isTransparent = false;
    bool wantsRepeats = false;
    EAutoScrollType scrollType = EAutoScrollType::Default;

private:
    void tell(const std::string& what, Tova2::Event* event = nullptr)
    {
        m_log.push_back(name + " " + what);
        if (onCall)
            onCall(*this, what, event);
    }
    void run(const Action& action)
    {
        if (action)
            action(*this);
    }

    Log& m_log;
};
