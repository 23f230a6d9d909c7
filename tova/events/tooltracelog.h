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
    TraceLine& operator<<(std::string_view text)
    {
        if (m_isOn)
            m_text += text;
        return *this;
    }
    /// Its class, without namespaces.
    TraceLine& operator<<(const Tool& tool);
    TraceLine& operator<<(Tool::EInteractionState state)
    {
        return *this << std::string_view(Tool::interactionStateName(state));
    }
    /// ", tool became active", when its state has changed.
    void addNewState(const Tool& tool, Tool::EInteractionState before);
    /// ", became active" or ", state did not change", and whether a tool became active meanwhile.
    void addOutcome(const Tool& tool, Tool::EInteractionState before, bool hasActivated,
                    std::string_view activated);

private:
    void write() noexcept;

    std::string m_text;
    bool m_isOn;
};

} // namespace Tova2
