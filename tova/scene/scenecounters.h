#pragma once

#include "host/diagnosticscounter.h"

namespace Tova2::SceneCounters {

/// Nodes that were added by themselves and have not left their scene; not the children they bring.
inline Host::DiagnosticsCounter& nodesInScenes()
{
    static auto& counter = Host::DiagnosticsCounter::counter("Scene:Nodes in scene");
    return counter;
}

/// Pictures of nodes painted for the caches that spare painting them again.
inline Host::DiagnosticsCounter& offscreenRepaints()
{
    static auto& counter = Host::DiagnosticsCounter::counter("Scene:Node offscreen repaint count",
                                                             Host::CounterKind::Total);
    return counter;
}

} // namespace Tova2::SceneCounters
