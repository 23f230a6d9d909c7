#pragma once

#include "tova/events/tool.h"

#include <vector>

namespace Tova2 {

/// What tool stacks ask of the autoscroller, of which the process has one.
class AutoScrollControl {
public:
    /// A tool has become active; with type `None` nothing is to scroll.
    virtual void start(Tool::EAutoScrollType type) = 0;
    virtual void stop() = 0;

    /// The one made last of those that live; null as long as there is none.
    static AutoScrollControl* current() noexcept;

protected:
    /// The process's own gives way to whatever stands in for it, made sooner or later.
    explicit AutoScrollControl(bool isOwn = false);
    AutoScrollControl(const AutoScrollControl&) = delete;
    AutoScrollControl& operator=(const AutoScrollControl&) = delete;
    ~AutoScrollControl();
    static const std::vector<AutoScrollControl*>& all() noexcept { return list(); }

private:
    static std::vector<AutoScrollControl*>& list() noexcept;
};

} // namespace Tova2
