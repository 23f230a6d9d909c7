#pragma once

namespace Tova2 {

class ToolFactory;

/// Makes the ready tools known, which lie above the scene; the one function of theirs that the
/// scene calls.
void addBuiltinToolConstructors(ToolFactory& factory);

} // namespace Tova2
