#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace Tova2 {

/// Set of small numbers, in bits, with a second level that tells which words of the first are not
/// empty.
class ActiveSet {
public:
    explicit ActiveSet(std::size_t size)
        : m_words((size + 63) / 64), m_summary((size + 4095) / 4096)
    {}

    void insert(std::size_t i)
    {
        m_words[i >> 6] |= bit(i);
        m_summary[i >> 12] |= bit(i >> 6);
    }
    void erase(std::size_t i)
    {
        if ((m_words[i >> 6] &= ~bit(i)) == 0)
            m_summary[i >> 12] &= ~bit(i >> 6);
    }

    /// Calls `visit` with each member in [from, to), in increasing order. It may erase that member.
    template <class Visit>
    void forEach(std::size_t from, std::size_t to, Visit&& visit) const
    {
        if (from >= to)
            return;
        const std::size_t lastWord = (to - 1) >> 6;
        std::size_t word = from >> 6;
        std::uint64_t bits = m_words[word] & ~std::uint64_t{0} << (from & 63);
        for (;;) {
            if (word == lastWord)
                bits &= ~std::uint64_t{0} >> (63 - ((to - 1) & 63));
            for (; bits; bits &= bits - 1)
                visit((word << 6) + std::countr_zero(bits));
            word = nextWord(word + 1, lastWord);
            if (word > lastWord)
                return;
            bits = m_words[word];
        }
    }

private:
    static std::uint64_t bit(std::size_t i) { return std::uint64_t{1} << (i & 63); }

    /// The first word at or after `word` that is not empty; beyond `last` if there is none.
    std::size_t nextWord(std::size_t word, std::size_t last) const
    {
        if (word > last)
            return word;
        std::size_t group = word >> 6;
        std::uint64_t bits = m_summary[group] & ~std::uint64_t{0} << (word & 63);
        while (!bits) {
            if (++group > last >> 6)
                return last + 1;
            bits = m_summary[group];
        }
        return (group << 6) + std::countr_zero(bits);
    }

    std::vector<std::uint64_t> m_words;
    std::vector<std::uint64_t> m_summary;
};

} // namespace Tova2
