#include "tova/typename.h"

#include <cstring>

namespace Tova2 {

bool isSameTypeName(const char* a, const char* b) noexcept
{
    return a == b ? a != nullptr : a && b && std::strcmp(a, b) == 0;
}

} // namespace Tova2
