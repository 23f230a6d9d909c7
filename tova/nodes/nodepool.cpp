#include "nodes/nodepool.h"

#include "nodes/nodecounters.h"

#include <array>
#include <deque>
#include <new>
#include <utility>

#include <cstring>

namespace Tova2::NodePool {

namespace {

constexpr std::size_t kGranularity = 16;
constexpr std::size_t kLargestPooled = 512;

/// By size alone, so that every kind of build shows the same figures.
Host::DiagnosticsCounter& counterOf(std::size_t size)
{
    return size > kLargestPooled ? NodeCounters::rawNodes() : NodeCounters::pooledNodes();
}

} // namespace

#if defined(TOVA_SANITIZED)

void* allocate(std::size_t size)
{
    void* const block = ::operator new(size);
    counterOf(size).increment();
    return block;
}

void release(void* block, std::size_t size) noexcept
{
    counterOf(size).decrement();
    ::operator delete(block, size);
}

#else

namespace {

/// Blocks of one size, side by side in regions small enough to come from the growing end of the
/// heap. New blocks rise in address, which keeps the toolkit's own sorted lists from moving half
/// their length at each removal.
class Pool {
public:
    void* take(std::size_t size)
    {
        if (m_free)
            return std::exchange(m_free, m_free->next);
        if (static_cast<std::size_t>(m_end - m_next) < size) {
            m_next = static_cast<char*>(::operator new(kRegion));
            m_end = m_next + kRegion;
        }
        return std::exchange(m_next, m_next + size);
    }
    void giveBack(void* block) noexcept { m_free = new (block) Free{m_free}; }

private:
    struct Free {
        Free* next;
    };
    static constexpr std::size_t kRegion = std::size_t{64} << 10;

    Free* m_free = nullptr;
    char* m_next = nullptr;
    char* m_end = nullptr;
};

// Never destroyed: nodes held by static handles give their blocks back later than statics end.
Pool& poolFor(std::size_t size)
{
    static auto* const pools = new std::array<Pool, kLargestPooled / kGranularity + 1>{};
    return (*pools)[(size + kGranularity - 1) / kGranularity];
}

void* take(std::size_t size)
{
    if (size > kLargestPooled)
        return ::operator new(size);
    return poolFor(size).take((size + kGranularity - 1) / kGranularity * kGranularity);
}

void giveBack(void* block, std::size_t size) noexcept
{
    if (size > kLargestPooled)
        ::operator delete(block, size);
    else
        poolFor(size).giveBack(block);
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
    counterOf(size).increment();
    return block;
}

void release(void* block, std::size_t size) noexcept
{
    counterOf(size).decrement();
#if defined(NDEBUG)
    giveBack(block, size);
#else
    retire(block, size);
#endif
}

#endif

} // namespace Tova2::NodePool
