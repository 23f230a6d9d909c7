#pragma once

#include <cstddef>

namespace Tova2 {

/// Memory of node implementations: blocks of like size side by side, so that a scene built at once
/// is walked in address order. Sanitized builds take each block from the heap, where a stale access
/// is seen.
namespace NodePool {

void* allocate(std::size_t size);
void release(void* block, std::size_t size) noexcept;

} // namespace NodePool

} // namespace Tova2
