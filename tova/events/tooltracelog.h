#pragma once

#include "tova/events/tool.h"
#include "tova/events/tooltrace.h"

#include <memory>
#include <string>
#include <string_view>

namespace Tova2 {

/// Collects the line of one step and writes it when the step ends, by an exception as well. Costs a
/// test while tracing is off.
class TraceLine {
public:
    TraceLine()
    {
        if (ToolTrace::isEnabled())
            m_text = std::make_unique<std::string>();
    }
    TraceLine(const TraceLine&) = delete;
    TraceLine& operator=(const TraceLine&) = delete;
    ~TraceLine()
    {
        if (m_text)
            write();
    }

    bool isOn() const noexcept { return m_text != nullptr; }
    template <class T>
    TraceLine& operator<<(const T& value)
    {
        if (m_text)
            append(value);
        return *this;
    }
    /// ", tool became active", when its state has changed.
    void addNewState(const Tool& tool, Tool::EInteractionState before)
    {
        if (m_text && tool.getInteractionState() != before)
            *this << ", tool became " << tool.getInteractionState();
    }
    /// ", became active" or ", state did not change", and whether a tool became active meanwhile.
    void addOutcome(const Tool& tool, Tool::EInteractionState before, bool hasActivated,
                    const char* activated)
    {
        if (m_text)
            appendOutcome(tool, before, hasActivated, activated);
    }

private:
    void append(std::string_view text) { *m_text += text; }
    void append(Tool::EInteractionState state) { *m_text += Tool::interactionStateName(state); }
    /// Its class, without namespaces.
    void append(const Tool& tool);
    void appendOutcome(const Tool& tool, Tool::EInteractionState before, bool hasActivated,
                       const char* activated);
    void write() noexcept;

    std::unique_ptr<std::string> m_text; // null while tracing is off
};

} // namespace Tova2
