#pragma once

#include "host/diagnosticscounter.h"

namespace Tova2::PathCounters {

/// Outlines of paths and whatever else follows their geometry. Camera moves build none.
inline Host::DiagnosticsCounter& outlinesBuilt()
{
    static auto& counter =
        Host::DiagnosticsCounter::counter("Paths:Outlines built", Host::CounterKind::Total);
    return counter;
}

/// Segments whose marks were laid out: once for each scale at which they are seen.
inline Host::DiagnosticsCounter& marksLaidOut()
{
    static auto& counter = Host::DiagnosticsCounter::counter("Paths:Crossing marks laid out",
                                                             Host::CounterKind::Total);
    return counter;
}

} // namespace Tova2::PathCounters
