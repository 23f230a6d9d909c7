#pragma once

#include <any>

namespace Vetra {

using any = std::any;

} // namespace Vetra
