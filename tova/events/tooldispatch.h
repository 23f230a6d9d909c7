#pragma once

#include "events/tooltracelog.h"
#include "nodes/deferrederror.h"
#include "tova/events/tool.h"

namespace Tova2 {

class ToolStackCore;

/// One event on its way through the tools of a stack: to the active tool alone, or to all from the
/// top down until one consumes it, then to those that wait to become active.
class ToolDispatch {
public:
    ToolDispatch(ToolStackCore& core, Event& event, bool isKeyRepeat) noexcept
        : m_core(core), m_event(event), m_isKeyRepeat(isKeyRepeat)
    {}
    void run();

    /// How the log tells of one way to offer an event.
    struct Wording {
        const char* skipping;
        const char* trying;
        const char* activated;
    };

private:
    void offer();
    void offerDeferred();
    template <class Call>
    void offerToActive(Tool& tool, Call call);
    template <class Call>
    bool offerTo(Tool& tool, const Wording& wording, Call call);
    template <class Call>
    bool tryTool(Tool& tool, TraceLine& line, Call call);
    void finish();

    ToolStackCore& m_core;
    Event& m_event;
    bool m_isKeyRepeat;
    DeferredError m_errors; // an exception ends the offering, not the dispatch
};

} // namespace Tova2
