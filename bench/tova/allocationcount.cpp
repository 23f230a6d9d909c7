#include "allocationcount.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> s_count{0};

} // namespace

std::size_t allocationCount() noexcept
{
    return s_count.load(std::memory_order_relaxed);
}

// The array and nothrow forms end up here; over-aligned memory is not counted.
void* operator new(std::size_t size)
{
    s_count.fetch_add(1, std::memory_order_relaxed);
    if (void* const memory = std::malloc(size ? size : 1))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}
