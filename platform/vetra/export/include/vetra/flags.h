#pragma once

#include <type_traits>

namespace Vetra {

/// A set of the bits of enumeration `E`. Bits that no enumerator names are kept.
template <class E>
class Flags {
public:
    using Bits = std::make_unsigned_t<std::underlying_type_t<E>>;

    constexpr Flags() noexcept = default;
    constexpr Flags(E flag) noexcept : m_bits(static_cast<Bits>(flag)) {}
    static constexpr Flags fromBits(Bits bits) noexcept
    {
        Flags flags;
        flags.m_bits = bits;
        return flags;
    }

    constexpr Bits bits() const noexcept { return m_bits; }
    constexpr bool isEmpty() const noexcept { return m_bits == 0; }
    /// Whether every bit of `flag` is set; false for an enumerator without bits.
    constexpr bool has(E flag) const noexcept
    {
        const Bits bits = static_cast<Bits>(flag);
        return bits != 0 && (m_bits & bits) == bits;
    }
    constexpr Flags operator|(Flags other) const noexcept
    {
        return fromBits(m_bits | other.m_bits);
    }
    constexpr Flags operator&(Flags other) const noexcept
    {
        return fromBits(m_bits & other.m_bits);
    }
    constexpr Flags& operator|=(Flags other) noexcept { return *this = *this | other; }
    bool operator==(const Flags&) const = default;

private:
    Bits m_bits = 0;
};

} // namespace Vetra
