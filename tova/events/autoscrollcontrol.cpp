#include "events/autoscrollcontrol.h"

namespace Tova2 {

AutoScrollControl* AutoScrollControl::s_current = nullptr;

} // namespace Tova2
