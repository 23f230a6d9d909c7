#include "nodes/cachebudget.h"

#include "tova/nodes/geometry/limits.h"

#include <QSize>

#include <utility>

namespace Tova2 {

CacheBudget& CacheBudget::instance()
{
    // Never destroyed: caches may be members of static objects.
    static auto* const budget = new CacheBudget;
    return *budget;
}

std::size_t CacheBudget::bytesOf(const QSize& pixels)
{
    return pixels.isEmpty() ? 0 : std::size_t(4) * pixels.width() * pixels.height();
}

bool CacheBudget::admits(const QSize& pixels)
{
    return !pixels.isEmpty() && bytesOf(pixels) <= Limits::nodeCacheBytes;
}

std::size_t CacheBudget::bytes()
{
    return instance().m_bytes;
}

void CacheBudget::makeRoomFor(std::size_t bytes)
{
    while (!m_entries.empty() && m_bytes + bytes > Limits::allCachesBytes) {
        // Taken away first: what it belongs to ends while it is called.
        const auto letGo = std::move(m_entries.back().letGo);
        letGo();
    }
}

CacheBudget::Share::Share(std::size_t bytes, std::function<void()> letGo)
{
    auto& budget = instance();
    budget.makeRoomFor(bytes);
    budget.m_entries.push_front({bytes, std::move(letGo)});
    budget.m_bytes += bytes;
    m_entry = budget.m_entries.begin();
}

CacheBudget::Share::~Share()
{
    auto& budget = instance();
    budget.m_bytes -= m_entry->bytes;
    budget.m_entries.erase(m_entry);
}

void CacheBudget::Share::touch() noexcept
{
    auto& entries = instance().m_entries;
    entries.splice(entries.begin(), entries, m_entry);
}

} // namespace Tova2
