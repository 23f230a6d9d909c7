#pragma once

#include "vetra/errorreporter.h"

#include <utility>

namespace Tova2 {

/// Reports what `call` throws, as a host's code may: nothing goes through the toolkit. False if it
/// did.
template <class Call>
bool guarded(const char* where, Call&& call) noexcept
{
    try {
        std::forward<Call>(call)();
        return true;
    } catch (...) {
        Vetra::reportError(std::current_exception(), where);
        return false;
    }
}

} // namespace Tova2
