// Sorts by 64-bit keys from the least significant digit, 11 bits at a time: one walk counts all
// digits, then each digit is one walk that puts the items where the counts say. A digit in which
// all keys agree is passed over, as most are with coordinates of diagrams. O(n) with up to seven
// walks, and a second array; the radix sort of Knuth, volume 3, section 5.2.5. Each walk is a
// plain loop that can stop at any block.
#include "nodes/crossings/slicedsort.h"

#include "nodes/crossings/slicedloop.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace Tova2 {

namespace {

constexpr std::uint64_t kSign = std::uint64_t{1} << 63;

} // namespace

std::uint64_t sortKey(double number)
{
    const auto bits = std::bit_cast<std::uint64_t>(number + 0.0); // turns -0 into 0
    return bits & kSign ? ~bits : bits | kSign;
}

double numberOfKey(std::uint64_t key)
{
    return std::bit_cast<double>(key & kSign ? key & ~kSign : ~key);
}

SlicedSort::SlicedSort(ScratchArray<SortItem> items) : m_items(std::move(items)) {}

bool SlicedSort::run(Host::TaskBudget& budget)
{
    constexpr std::size_t kSmall = 512; // where counting digits costs more than it brings
    if (m_items.size() <= kSmall) {
        std::stable_sort(m_items.data(), m_items.data() + m_items.size(),
                         [](const auto& a, const auto& b) { return a.key < b.key; });
        return true;
    }
    if (m_digit < 0 && !count(budget))
        return false;
    while (m_digit < kDigits) {
        if (!scatter(budget))
            return false;
        beginDigit();
    }
    m_target.reset();
    return true;
}

bool SlicedSort::count(Host::TaskBudget& budget)
{
    if (!m_counts)
        m_counts = std::make_unique<std::array<Counts, kDigits>>();
    auto& counts = *m_counts;
    const bool isThrough =
        sliced(m_cursor, m_items.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
            for (std::size_t i = from; i < to; ++i) {
                for (int digit = 0; digit < kDigits; ++digit)
                    ++counts[digit][m_items[i].key >> (digit * kDigitBits) & (kBase - 1)];
            }
        });
    if (isThrough) {
        m_target = ScratchArray<SortItem>(m_items.size());
        m_digit = -1;
        std::swap(m_items, m_target); // as if a digit had just been done
        beginDigit();
    }
    return isThrough;
}

bool SlicedSort::isConstant(const Counts& counts) const
{
    return std::ranges::find(counts, m_items.size()) != counts.end();
}

void SlicedSort::beginDigit()
{
    std::swap(m_items, m_target);
    m_cursor = 0;
    do
        ++m_digit;
    while (m_digit < kDigits && isConstant((*m_counts)[m_digit]));
    if (m_digit == kDigits)
        return;
    std::uint32_t place = 0;
    for (std::uint32_t& count : (*m_counts)[m_digit])
        place += std::exchange(count, place);
}

bool SlicedSort::scatter(Host::TaskBudget& budget)
{
    auto& places = (*m_counts)[m_digit];
    const int shift = m_digit * kDigitBits;
    return sliced(m_cursor, m_items.size(), kBlock, budget, [&](std::size_t from, std::size_t to) {
        for (std::size_t i = from; i < to; ++i)
            m_target[places[m_items[i].key >> shift & (kBase - 1)]++] = m_items[i];
    });
}

} // namespace Tova2
