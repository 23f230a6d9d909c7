#include "scene/builtintools.h"

#include "tova/events/toolfactory.h"

namespace Tova2 {

// One line a tool. A role that a scene's default stack has a place for and that nobody makes is
// left out of the stack.
void addBuiltinToolConstructors(ToolFactory&) {}

} // namespace Tova2
