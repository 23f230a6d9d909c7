#pragma once

#include "events/toolstackcore.h"

namespace Tova2 {

class ToolStackCore::Use {
public:
    explicit Use(ToolStackCore& core) noexcept : m_core(core), m_pin(core.m_tools)
    {
        ++m_core.m_uses;
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;
    ~Use()
    {
        // Tools may die now, and still use the core.
        m_pin.reset();
        if (--m_core.m_uses == 0 && m_core.m_isRetired)
            delete &m_core;
    }

private:
    ToolStackCore& m_core;
    std::optional<ToolList::Pin> m_pin;
};

class ToolStackCore::Inside {
public:
    explicit Inside(ToolStackCore& core) noexcept : m_depth(core.m_depth) { ++m_depth; }
    Inside(const Inside&) = delete;
    Inside& operator=(const Inside&) = delete;
    ~Inside() { --m_depth; }

private:
    int& m_depth;
};

class ToolStackCore::ActivationScope {
public:
    explicit ActivationScope(ToolStackCore& core) noexcept
        : m_core(core)
        , m_before(core.m_activations)
        , m_outer(std::exchange(core.m_hasActivated, false))
    {}
    ActivationScope(const ActivationScope&) = delete;
    ActivationScope& operator=(const ActivationScope&) = delete;
    ~ActivationScope() { m_core.m_hasActivated = m_outer || m_core.m_activations != m_before; }

private:
    ToolStackCore& m_core;
    unsigned m_before;
    bool m_outer;
};

class ToolStackCore::CursorScope {
public:
    explicit CursorScope(ToolStackCore& core) noexcept
        : m_core(core), m_outer(std::exchange(core.m_cursor, {}))
    {
        ++m_core.m_dispatches;
    }
    CursorScope(const CursorScope&) = delete;
    CursorScope& operator=(const CursorScope&) = delete;
    ~CursorScope()
    {
        if (--m_core.m_dispatches > 0)
            m_core.m_cursor = isOuterGone() ? OfferedCursor() : m_outer;
        else
            m_core.m_isCursorStale = false;
    }

private:
    bool isOuterGone() const noexcept { return m_outer.from && !m_core.hasTool(m_outer.from); }

    ToolStackCore& m_core;
    OfferedCursor m_outer;
};

} // namespace Tova2
