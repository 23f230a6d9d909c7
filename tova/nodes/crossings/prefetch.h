#pragma once

namespace Tova2 {

/// Asks for memory that is needed soon.
///
/// The compiler takes a function that does nothing else for one without effect and drops calls of
/// it; the empty assembly keeps it from that.
inline void prefetch(const void* address)
{
    __builtin_prefetch(address);
    asm volatile("");
}

} // namespace Tova2
