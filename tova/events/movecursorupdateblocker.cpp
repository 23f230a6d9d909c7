#include "tova/events/movecursorupdateblocker.h"

namespace Tova2 {

int MoveCursorUpdateBlocker::blockCount = 0;

} // namespace Tova2
