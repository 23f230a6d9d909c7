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
    std::optional<Vetra::Cursor> overrideCursor() override { return cursor; }
    void receiveMessage(Vetra::StringID id, const Vetra::any& payload) override
    {
        tell("message");
        Tool::receiveMessage(id, payload);
    }
    void handleMousePressEvent(Tova2::MouseEvent& event) override
    {
        tell("press");
        current = &event;
        run(onPress);
    }
    void handleKeyPressEvent(Tova2::KeyEvent&) override { tell("key"); }
    void handleKeyReleaseEvent(Tova2::KeyEvent&) override { tell("key up"); }
    void deferredActivate(Tova2::Event& event, bool isKeyRepeat) override
    {
        tell("deferred");
        Tool::deferredActivate(event, isKeyRepeat);
    }

    std::string name;
    Action onPress;
    Action onCancel; ///< in place of becoming idle
    Action onRemove;
    Tova2::Event* current = nullptr;
    std::optional<Vetra::Cursor> cursor;
    bool isModifying = false;
    bool isTransparent = false;
    bool wantsRepeats = false;

private:
    void tell(const std::string& what) { m_log.push_back(name + " " + what); }
    void run(const Action& action)
    {
        if (action)
            action(*this);
    }

    Log& m_log;
};
