#pragma once

#include "tova/nodes/weakref.h"

#include <cstdint>

namespace Tova2 {

/// What those need to know of references who keep very many of them.
struct WeakRefAccess {
    /// What a copy has to touch: worth fetching ahead of many copies.
    static const void* copied(const WeakRef& ref) noexcept { return ref.m_anchor.get(); }
    /// How many elements have died that references were made to: while it stays the same, those
    /// that were alive still are.
    static std::uint64_t deathCount() noexcept;
};

} // namespace Tova2
