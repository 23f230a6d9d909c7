#pragma once

#include "host/diagnosticscounter.h"

namespace Tova2::NodeCounters {

/// Implementations that have memory of their own, since they are too large for the pool.
inline Host::DiagnosticsCounter& rawNodes()
{
    static auto& counter = Host::DiagnosticsCounter::counter("Node:Node raw instance count");
    return counter;
}

/// Implementations in blocks of the pool. Every implementation on the heap is one or the other.
inline Host::DiagnosticsCounter& pooledNodes()
{
    static auto& counter = Host::DiagnosticsCounter::counter("Node:Node pool instance count");
    return counter;
}

} // namespace Tova2::NodeCounters
