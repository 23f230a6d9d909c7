#pragma once

#include "tova/events/tool.h"

namespace Tova2 {

/// What tool stacks ask of the autoscroller, of which the process has one.
class AutoScrollControl {
public:
    /// A tool has become active; with type `None` nothing is to scroll.
    virtual void start(Tool::EAutoScrollType type) = 0;
    virtual void stop() = 0;

    /// Null as long as there is none.
    static AutoScrollControl* current() noexcept { return s_current; }
    static void setCurrent(AutoScrollControl* control) noexcept { s_current = control; }

protected:
    ~AutoScrollControl() = default;

private:
    static AutoScrollControl* s_current;
};

} // namespace Tova2
