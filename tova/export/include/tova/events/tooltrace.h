#pragma once

#include "tova/tova_export.h"
#include "tova/typename.h"

namespace Tova2 {

/// Whether tool stacks write what they do to standard output, a line for each step of a dispatch.
/// Off at the start, unless the environment variable TOVA_TRACE_TOOLS is set to something other
/// than 0. The line of a step is written when the step has ended, so that what it caused stands
/// above it.
class TOVA_EXPORT ToolTrace {
public:
    static bool isEnabled() noexcept { return s_isEnabled; }
    static void setEnabled(bool enabled) noexcept { s_isEnabled = enabled; }

private:
    static bool s_isEnabled;

    TOVA_PLAIN_TYPE("Tova2.ToolTrace");
};

} // namespace Tova2
