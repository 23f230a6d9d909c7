#include "scene/builtintools.h"

#include "tova/events/contextmenutool.h"
#include "tova/events/cursorchangetool.h"
#include "tova/events/toolfactory.h"
#include "tova/events/tooltiptool.h"
#include "tova/events/unconsumedeventtool.h"
#include "tova/widget/panzoomtool.h"
#include "tova/widget/scrollwheeltool.h"

namespace Tova2 {

// One line a tool. A role that a scene's default stack has a place for and that nobody makes is
// left out of the stack.
void addBuiltinToolConstructors(ToolFactory& factory)
{
    factory.addToolConstructor(new ToolConstructor<UnconsumedEventTool>);
    factory.addToolConstructor(new ToolConstructor<CursorChangeTool>);
    factory.addToolConstructor(new ToolConstructor<ToolTipTool>);
    factory.addToolConstructor(new ToolConstructor<ContextMenuTool>);
    factory.addToolConstructor(new ToolConstructor<PanZoomTool>);
    factory.addToolConstructor(new ToolConstructor<ScrollWheelTool>);
}

} // namespace Tova2
