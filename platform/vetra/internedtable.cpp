#include "internedtable.h"

#include <cstring>

namespace Vetra {

namespace {

std::uint64_t mix(std::uint64_t a, std::uint64_t b) noexcept
{
    __extension__ using Wide = unsigned __int128;
    const Wide product = Wide(a) * b;
    return std::uint64_t(product) ^ std::uint64_t(product >> 64);
}

std::uint64_t word(const char* at) noexcept
{
    std::uint64_t value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

std::uint64_t shortWord(const char* at, std::size_t length) noexcept
{
    if (length >= 4) {
        std::uint32_t head, tail;
        std::memcpy(&head, at, sizeof head);
        std::memcpy(&tail, at + length - sizeof tail, sizeof tail);
        return std::uint64_t(head) << 32 | tail;
    }
    const auto byte = [at](std::size_t i) {
        return std::uint64_t(static_cast<unsigned char>(at[i]));
    };
    return byte(0) << 16 | byte(length / 2) << 8 | byte(length - 1);
}

// Eight bytes a step by a folded multiplication; identifiers are short, so the start and the end
// count most.
std::uint64_t hashOf(std::string_view text) noexcept
{
    constexpr std::uint64_t first = 0x9e3779b97f4a7c15u, second = 0xd6e8feb86659fd93u;
    const char* at = text.data();
    std::size_t left = text.size();
    std::uint64_t state = first ^ left;
    for (; left > 8; at += 8, left -= 8)
        state = mix(state ^ word(at), second);
    const auto last = left == 8 ? word(at) : shortWord(at, left);
    return mix(state ^ last, first);
}

} // namespace

InternedTable::InternedTable()
{
    m_all.push_back(std::make_unique<Slots>(1024));
    m_current.store(m_all.back().get(), std::memory_order_release);
}

const std::string* InternedTable::intern(std::string_view text)
{
    const auto hash = hashOf(text);
    const Entry* entry = find(*m_current.load(std::memory_order_acquire), text, hash);
    if (!entry)
        entry = insert(text, hash);
    return &entry->text;
}

const InternedTable::Entry* InternedTable::find(const Slots& in, std::string_view text,
                                                std::uint64_t hash) noexcept
{
    for (auto i = hash & in.mask;; i = (i + 1) & in.mask) {
        const Entry* const entry = in.slots[i].load(std::memory_order_acquire);
        if (!entry || (entry->hash == hash && entry->text == text))
            return entry;
    }
}

void InternedTable::place(Slots& in, const Entry* entry) noexcept
{
    auto i = entry->hash & in.mask;
    while (in.slots[i].load(std::memory_order_relaxed))
        i = (i + 1) & in.mask;
    in.slots[i].store(entry, std::memory_order_release);
}

const InternedTable::Entry* InternedTable::insert(std::string_view text, std::uint64_t hash)
{
    const std::lock_guard lock(m_writing);
    // Another thread may have been first.
    if (const Entry* const entry = find(*m_all.back(), text, hash))
        return entry;
    auto made = std::make_unique<const Entry>(Entry{hash, std::string(text)});
    if (2 * (m_entries.size() + 1) > m_all.back()->mask)
        grow();
    m_entries.push_back(std::move(made));
    place(*m_all.back(), m_entries.back().get());
    return m_entries.back().get();
}

void InternedTable::grow()
{
    auto larger = std::make_unique<Slots>(2 * (m_all.back()->mask + 1));
    for (const auto& entry : m_entries)
        place(*larger, entry.get());
    m_all.push_back(std::move(larger));
    m_current.store(m_all.back().get(), std::memory_order_release);
}

} // namespace Vetra
