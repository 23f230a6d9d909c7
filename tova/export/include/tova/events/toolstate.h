#pragma once

#include "tova/events/eventhandler.h"
#include "tova/events/tool.h"
#include "tova/typename.h"

namespace Tova2 {

/// One state of a tool that is written in the state pattern: the tool owns its states, makes the
/// current one its delegate and takes over the interaction state that it stands for.
class TOVA_EXPORT ToolState : public EventHandler {
public:
    /// The tool has to outlive its states.
    explicit ToolState(Tool* tool) noexcept : m_tool(tool) {}
    ~ToolState() override;
    Tool* tool() const noexcept { return m_tool; }
    virtual Tool::EInteractionState getInteractionState() const = 0;

private:
    Tool* m_tool;

    TOVA_DERIVED_TYPE("Tova2.ToolState", EventHandler);
};

} // namespace Tova2
