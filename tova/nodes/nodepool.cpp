#include "nodes/nodepool.h"

#include "host/diagnosticscounter.h"

#include <array>
#include <boost/pool/pool.hpp>
#include <deque>
#include <new>

#include <cstring>

namespace Tova2::NodePool {

namespace {

constexpr std::size_t kGranularity = 16;
constexpr std::size_t kLargestPooled = 512;
constexpr std::size_t kBlocksAtFirst = 64;

Host::DiagnosticsCounter& pooled()
{
    static auto& counter = Host::DiagnosticsCounter::counter("Node:Node pool instance count");
    return counter;
}

} // namespace

#if defined(TOVA_SANITIZED)

void* allocate(std::size_t size)
{
    void* const block = ::operator new(size);
    pooled().increment();
    return block;
}

void release(void* block, std::size_t size) noexcept
{
    pooled().decrement();
    ::operator delete(block, size);
}

#else

namespace {

using Pool = boost::pool<>;

// Never destroyed: nodes held by static handles give their blocks back later than statics end.
Pool& poolFor(std::size_t size)
{
    static auto* const pools = new std::array<Pool*, kLargestPooled / kGranularity + 1>{};
    const std::size_t index = (size + kGranularity - 1) / kGranularity;
    auto*& pool = (*pools)[index];
    if (!pool)
        pool = new Pool(index * kGranularity, kBlocksAtFirst);
    return *pool;
}

void* take(std::size_t size)
{
    if (size > kLargestPooled)
        return ::operator new(size);
    void* const block = poolFor(size).malloc();
    if (!block)
        throw std::bad_alloc();
    return block;
}

void giveBack(void* block, std::size_t size) noexcept
{
    if (size > kLargestPooled)
        ::operator delete(block, size);
    else
        poolFor(size).free(block);
}

#if !defined(NDEBUG)
struct Quarantined {
    void* block;
    std::size_t size;
};

// Debug builds overwrite a dead node and keep its block for a while: a stale pointer then fails at
// its first use.
void retire(void* block, std::size_t size) noexcept
{
    constexpr std::size_t kKept = 1000;
    static auto* const quarantine = new std::deque<Quarantined>;
    std::memset(block, 0xdd, size);
    quarantine->push_back({block, size});
    if (quarantine->size() > kKept) {
        giveBack(quarantine->front().block, quarantine->front().size);
        quarantine->pop_front();
    }
}
#endif

} // namespace

void* allocate(std::size_t size)
{
    void* const block = take(size);
    pooled().increment();
    return block;
}

void release(void* block, std::size_t size) noexcept
{
    pooled().decrement();
#if defined(NDEBUG)
    giveBack(block, size);
#else
    retire(block, size);
#endif
}

#endif

} // namespace Tova2::NodePool
