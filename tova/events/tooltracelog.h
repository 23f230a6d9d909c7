#pragma once

#include "tova/events/tool.h"
#include "tova/events/tooltrace.h"

#include <string>
#include <string_view>

namespace Tova2 {

/// Collects the line of one step and writes it when the step ends, by an exception as well. Costs a
/// test while tracing is off.
class TraceLine {
public:
    TraceLine() noexcept : m_isOn(ToolTrace::isEnabled()) {}
    TraceLine(const TraceLine&) = delete;
    TraceLine& operator=(const TraceLine&) = delete;
    ~TraceLine()
    {
        if (m_isOn && !m_text.empty())
            write();
    }

    bool isOn() const noexcept { return m_isOn; }
    template <class T>
    TraceLine& operator<<(const T& value)
    {
        if (m_isOn)
            append(value);
        return *this;
    }
    /// ", tool became active", when its state has changed.
    void addNewState(const Tool& tool, Tool::EInteractionState before)
    {
        if (m_isOn && tool.getInteractionState() != before)
            *this << ", tool became " << tool.getInteractionState();
    }
    /// ", became active" or ", state did not change", and whether a tool became active meanwhile.
    void addOutcome(const Tool& tool, Tool::EInteractionState before, bool hasActivated,
                    const char* activated)
    {
        if (m_isOn)
            appendOutcome(tool, before, hasActivated, activated);
    }

private:
    void append(std::string_view text) { m_text += text; }
    void append(Tool::EInteractionState state) { m_text += Tool::interactionStateName(state); }
    /// Its class, without namespaces.
    void append(const Tool& tool);
    void appendOutcome(const Tool& tool, Tool::EInteractionState before, bool hasActivated,
                       const char* activated);
    void write() noexcept;

    std::string m_text;
    bool m_isOn;
};

} // namespace Tova2
