#pragma once

#include "nodes/crossings/chunkedvector.h"

#include "host/task.h"

#include <array>
#include <cstdint>

namespace Tova2 {

struct SortItem {
    std::uint64_t key;
    std::uint32_t value;
};

/// A key that orders as the finite number does; both zeros have the same.
std::uint64_t sortKey(double number);
double numberOfKey(std::uint64_t key);

/// Stable sort by key that may stop at any time.
class SlicedSort {
public:
    explicit SlicedSort(ScratchArray<SortItem> items);

    /// True when done.
    bool run(Host::TaskBudget& budget);
    ScratchArray<SortItem>& items() { return m_items; }

private:
    static constexpr int kDigitBits = 11;
    static constexpr int kDigits = 6;
    static constexpr std::uint64_t kBase = std::uint64_t{1} << kDigitBits;
    static constexpr std::size_t kBlock = 1024;
    using Counts = std::array<std::uint32_t, kBase>;

    bool count(Host::TaskBudget& budget);
    bool isConstant(const Counts& counts) const;
    void beginDigit();
    bool scatter(Host::TaskBudget& budget);

    ScratchArray<SortItem> m_items;
    ScratchArray<SortItem> m_target;
    std::unique_ptr<std::array<Counts, kDigits>> m_counts;
    std::size_t m_cursor = 0;
    int m_digit = -1; ///< -1 while counting
};

} // namespace Tova2
