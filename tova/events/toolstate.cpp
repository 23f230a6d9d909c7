#include "tova/events/toolstate.h"

namespace Tova2 {

ToolState::~ToolState() = default;

} // namespace Tova2
