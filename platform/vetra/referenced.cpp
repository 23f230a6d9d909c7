#include "vetra/referenced.h"

namespace Vetra {

Referenced::~Referenced() = default;

void Referenced::destroy()
{
    delete this;
}

} // namespace Vetra
