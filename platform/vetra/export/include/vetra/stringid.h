#pragma once

#include "vetra/vetra_export.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace Vetra {

/// Interned identifier: equal texts share one entry for the life of the process, so that comparing
/// and hashing cost one pointer. Safe to make from any thread.
class VETRA_EXPORT StringID {
public:
    /// The empty identifier; equal to `StringID("")`.
    constexpr StringID() noexcept = default;
    StringID(std::string_view text);
    StringID(const char* text) : StringID(std::string_view(text ? text : "")) {}
    StringID(const std::string& text) : StringID(std::string_view(text)) {}

    const std::string& str() const noexcept;
    constexpr bool empty() const noexcept { return m_entry == nullptr; }

    /// By identity, which is equality of texts.
    bool operator==(const StringID&) const = default;
    /// A stable order within one process, by address; not alphabetical.
    bool operator<(const StringID& other) const noexcept
    {
        return std::less<>()(m_entry, other.m_entry);
    }

    friend std::size_t hash_value(const StringID& id) noexcept
    {
        return std::hash<const void*>()(id.m_entry);
    }

private:
    const std::string* m_entry = nullptr;
};

} // namespace Vetra

template <>
struct std::hash<Vetra::StringID> {
    std::size_t operator()(const Vetra::StringID& id) const noexcept { return hash_value(id); }
};
